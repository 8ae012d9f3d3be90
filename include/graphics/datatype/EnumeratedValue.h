#pragma once

/// What the value classes and the conversions of the enumerated types derive from.
/// <graphics/datatype/enumerated_types.h> has the classes themselves. A conversion of a type is
/// used as any other:
///
///     const LineStyleSC conversion(type);
///     const vcos::COSValue dashed = conversion.from(vcos::COSValue::fromPointer("--"));
///     type.destroy(dashed);

#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/EnumCache.h>
#include <graphics/datatype/HostAllocated.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// A value of an enumerated type: an enumerator, held in the host's memory.
class VGDT_API EnumeratedValue : public EnumBase, public HostAllocated {
 public:
  int getIntValue() const noexcept final { return enumValue_; }

 protected:
  explicit EnumeratedValue(int enumerator) noexcept : enumValue_(enumerator) {}

 private:
  int enumValue_;
  [[maybe_unused]] void* enumCompanion_ = nullptr;  // part of the layout that callers know
};

/// Between a C string and a value of an enumerated type.
template <class DataType>
class VGDT_API EnumeratedSC : public vcos::COSTypeConversion {
 public:
  /// The data type has to outlive the conversion.
  explicit EnumeratedSC(const DataType& dataType) : dataType_(dataType) {}

  /// The name of the value, in lower case, on the host's heap; null for null, and for a value that
  /// has no name. A failed allocation is a vcos::COSOutOfMemoryException.
  vcos::COSValue to(vcos::COSValue value) const final;
  /// The value of a name, or of an abbreviation of only one name, in any case, with white space
  /// around it. Any other text raises "VORTIL:datatypes:InvalidEnumValue".
  vcos::COSValue from(vcos::COSValue text) const final;

 private:
  const DataType& dataType_;
};

/// Between a host array and a value of an enumerated type.
template <class DataType>
class VGDT_API EnumeratedVC : public vcos::COSTypeConversion {
 public:
  /// The data type has to outlive the conversion.
  explicit EnumeratedVC(const DataType& dataType) : dataType_(dataType), cache_(dataType) {}

  /// The name of the value as a char array, empty for null and for a value that has no name. It
  /// belongs to the caller and shares its data.
  vcos::COSValue to(vcos::COSValue value) const final;
  /// Takes a char array of any shape with a text that EnumeratedSC takes; null gives null. An array
  /// of another class raises "VORTIL:datatypes:InvalidEnumValueFor", an empty one
  /// "VORTIL:datatypes:InvalidValue", a failure to read its text "VORTIL:datatypes:OutOfMemory".
  vcos::COSValue from(vcos::COSValue array) const final;

 private:
  const DataType& dataType_;
  mutable utils::EnumCache cache_;
};

}  // namespace graphics::datatype
