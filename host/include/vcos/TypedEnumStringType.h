#pragma once

#include <ut/export.h>
#include <vcos/COSDataType.h>
#include <vcos/COSTypeRepository.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vcos {

/// A named enumeration as the host sees it.
class VGHOST_API EnumerationType {
 public:
  virtual ~EnumerationType();
  virtual std::size_t getEnumLength() const = 0;
  /// The name of a value; null if there is none.
  virtual const char* getEnumString(COSValue value) const = 0;
  /// The value of a name that was added in exactly that form; the null word if there is none.
  virtual COSValue getEnumValue(const char* name) const = 0;
  /// True only for a name that was added in exactly that form. Null is none.
  virtual bool isValidEnumName(const char* name) const = 0;
  /// True if the text is no name and two or more names begin with it.
  virtual bool isEnumNameAmbiguous(const char* name) const = 0;
  /// True if a user is to see the name: every valid name.
  virtual bool getEnumVisibility(const char* name) const = 0;
};

/// The host's mapping between names and words. As a data type it holds the word itself.
class VGHOST_API TypedEnumStringType final : public COSDataType, public EnumerationType {
 public:
  ~TypedEnumStringType() override;

  /// Maps `name` to `value`. A name that is there already gets the new value.
  virtual void addElement(COSValue value, const char* name);

  /// Makes the type and registers it under its full dotted name; the host owns it. `reserved` is
  /// null. A COSException if the name is taken.
  static TypedEnumStringType* createInstance(COSDataTypePtr baseType, const char* typeName,
                                             const char* reserved);
  /// Destroys what createInstance made. An unknown name does nothing.
  static void destroyInstance(COSNameID typeName);

  std::size_t getEnumLength() const override;
  const char* getEnumString(COSValue value) const override;
  COSValue getEnumValue(const char* name) const override;
  bool isValidEnumName(const char* name) const override;
  bool isEnumNameAmbiguous(const char* name) const override;
  bool getEnumVisibility(const char* name) const override;

  const char* getDeclarationName() const override;
  const char* getName() const override;  ///< the full dotted name
  bool isPossibleValuesFinite() const override;
  Enumeration<COSValue> getPossibleValues() const override;
  COSValue getDefaultValue() const override;
  int getStorageType() const override;
  const char* getCategoryName() const override;
  std::size_t getSizeInBits() const override;
  bool isEqual(COSValue a, COSValue b) const override;
  int compare(COSValue a, COSValue b) const override;
  std::size_t getValueSizeInBytes(COSValue value) const override;
  COSValue copy(COSValue value) const override;
  void destroy(COSValue value) const override;

 private:
  struct Element {
    std::string name;
    COSValue value;
  };

  TypedEnumStringType(COSDataTypePtr baseType, COSNameID typeName);
  const Element* find(const char* name) const noexcept;

  COSDataTypePtr baseType_;
  COSNameID typeName_;
  std::vector<Element> elements_;
  /// Makes finding a name faster. For each first character (several share a place) it has the
  /// position, counted from 1, of the first element that begins so, or 255 if that stands further
  /// behind; 0 where no element does.
  std::array<std::uint8_t, 32> firstPosition_{};
};

}  // namespace vcos
