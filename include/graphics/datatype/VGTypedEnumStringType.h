#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSValue.h>

#include <atomic>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vcos {
class JavaTypeConversion;
class TypedEnumStringType;
}  // namespace vcos

namespace graphics::datatype {

/// A name and its value as constants.
struct EnumeratedName {
  const char* name;
  int value;
};
using NameRows = std::span<const EnumeratedName>;

/// A table of names and their values, which finds a name by any text that stands for it: the name
/// itself or an abbreviation that fits no other name, in any case, with white space around it.
///
/// The mapping itself is kept by a type of the host's, which is registered as
/// "vortil.graphics.enumstyletypes.<name>". A second table of the same name shares that type, but
/// does not take over its names: it finds only what it has added itself and was new. So the first
/// table of a name is the one for finding names, and it has to outlive the others.
///
/// If the host knows another kind of type by that name, the table stays without one: it has no
/// names and takes none.
///
///     VGTypedEnumStringType table("Answer");
///     table.addElement(vcos::COSValue::fromInteger(1), "yes");
///     table.addElement(vcos::COSValue::fromInteger(0), "no");
///     table.getEnumValue(" Y").asInteger<int>();  // 1
///
/// A failed allocation is a std::bad_alloc, but a vcos::COSOutOfMemoryException where a table
/// copies its names, which it does when it is first asked for one or given one.
class VGDT_API VGTypedEnumStringType {
 public:
  /// Registers the host type, and its package, if there is none of that name yet. What the host
  /// raises or throws passes through.
  explicit VGTypedEnumStringType(const char* name);
  /// The same, and adds names that are in lower case and all different. The rows have to outlive
  /// the table: it copies the names when it is first asked for one.
  VGTypedEnumStringType(const char* name, NameRows rows);
  /// Destroys the host type if this table registered it.
  virtual ~VGTypedEnumStringType();
  VGTypedEnumStringType(const VGTypedEnumStringType&) = delete;
  VGTypedEnumStringType& operator=(const VGTypedEnumStringType&) = delete;

  // The order of the virtual operations is part of the interface.

  /// Adds a name, in lower case, which must not be null. A name that is there already, in whatever
  /// case, keeps its value.
  virtual void addElement(vcos::COSValue value, const char* name);
  virtual std::size_t getEnumLength() const;
  /// The name of a value, in lower case; it belongs to the host type. Null if there is none.
  virtual const char* getEnumString(vcos::COSValue value) const;
  /// The value of the name that a text stands for; the null word, which is also that of 0, if it
  /// stands for none.
  virtual vcos::COSValue getEnumValue(const char* name) const;
  /// Whether a text stands for a name.
  virtual bool isValidEnumName(const char* name) const;
  /// The host type's answer for the text in lower case.
  virtual bool isEnumNameAmbiguous(const char* name) const;
  /// The host type's answer.
  virtual bool getEnumVisibility(const char* name) const;
  /// The host type's answer, unless a data type replaces it.
  virtual bool isPossibleValuesFinite() const;
  /// The names that this table added, in the order of adding.
  virtual const std::vector<std::string>& getEnumStrings() const;
  /// The name that equals a text or, if none does, the only one that begins with it; null if there
  /// is none. The text is in lower case and has no white space around it. The result is the
  /// table's.
  virtual const char* getEnumFromPartialMatch(std::string name) const;

  /// A new Java conversion for the type of that dotted name, whose names the table has. The table
  /// has to outlive it.
  static vcos::JavaTypeConversion* createJavaConverter(const VGTypedEnumStringType* table,
                                                       const char* typeName);

  /// isValidEnumName() and getEnumValue() in one search; none for a null text.
  std::optional<vcos::COSValue> findEnumValue(const char* name) const;

  /// The value of one of getEnumStrings().
  vcos::COSValue numberOf(const std::string& name) const;

  /// False if no name begins as a text does, which is found out without a search. A text that
  /// begins with white space or beyond ASCII may always stand for one; null never does.
  bool mayStandForName(const char* text) const;

 private:
  struct Names;

  Names& names() const;
  Names& makeNames() const;
  const char* findName(const char* text) const;

  bool ownsHostType_ = false;
  vcos::TypedEnumStringType* hostEnumType_ = nullptr;
  NameRows rows_;
  /// Null until somebody asks for a name: most tables of a process are never asked.
  mutable std::atomic<Names*> names_ = nullptr;
};

}  // namespace graphics::datatype
