#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSDataType.h>
#include <vcos/COSTypeConversion.h>

#include <cstddef>

namespace graphics::datatype {

/// The two-valued type "on_off". A word is the value itself: zero is off, anything else on. It is
/// the one type without value objects, and the one whose compare() orders.
///
///     const vcos::COSValue word = OnOffBooleanSC().from(vcos::COSValue::fromPointer("Off"));
///     const bool isOn = word.asLogical();  // false
class VGDT_API OnOffBooleanDataType final : public vcos::COSDataType {
 public:
  /// Not formed from the class's name, as the dotted names of all other types are.
  static constexpr const char* kDottedName = "vortil.graphics.datatype.on_off";

  /// The one instance, made at the first call and never destroyed.
  static vcos::COSDataType* getType();

  const char* getDeclarationName() const override;            ///< "char"
  const char* getName() const override;                       ///< "on_off"
  const char* getPossibleValuesDescription() const override;  ///< "on/off"
  bool isPossibleValuesFinite() const override;               ///< true
  /// On, then off. A failed allocation is a vcos::COSOutOfMemoryException.
  vcos::Enumeration<vcos::COSValue> getPossibleValues() const override;
  vcos::COSValue getDefaultValue() const override;                       ///< off
  int getStorageType() const override;                                   ///< 0
  const char* getCategoryName() const override;                          ///< "Fundamental"
  std::size_t getSizeInBits() const override;                            ///< 8
  std::size_t getValueSizeInBytes(vcos::COSValue value) const override;  ///< 1
  /// Both on or both off, whatever the other bits of the words are.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  /// -1 for off and on, 1 for on and off, 0 for equal values.
  int compare(vcos::COSValue a, vcos::COSValue b) const override;
  vcos::COSValue copy(vcos::COSValue value) const override;  ///< the word itself
  void destroy(vcos::COSValue value) const override;         ///< nothing
};

/// Between a C string and a word; registered for "on_off", and for the host's scalar "bool".
class VGDT_API OnOffBooleanSC final : public vcos::COSTypeConversion {
 public:
  /// "on" or "off": a constant, which the caller must not free.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes "on", "off" and "of" in any case, without blanks around them. Any other text, and null,
  /// raises "VORTIL:datatypes:onoffboolean:UnknownOnOffBooleanValue".
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API OnOffBooleanVC final : public vcos::COSTypeConversion {
 public:
  /// A char array, "on" or "off", which belongs to the caller and shares its data.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a char array with the texts of OnOffBooleanSC::from. An array of another class, and
  /// null, raises "VORTIL:datatypes:onoffboolean:IncorrectValue", any failure to read its text
  /// "VORTIL:vg:datatypes:OutOfMemory".
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_datatypes_OnOffBooleanDataType();

}  // namespace graphics::datatype
