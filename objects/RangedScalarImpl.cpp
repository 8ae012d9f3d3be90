// Positive and LightingStrength: one number each, confined to a range.

#include "JavaObjects.h"
#include "NumberText.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/InvalidValueException.h>
#include <graphics/datatype/LightingStrengthDataType.h>
#include <graphics/datatype/PositiveDataType.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/nearlyEqual.h>
#include <vg/MatrixTraits.h>
#include <vx/array.h>

#include <cmath>

namespace graphics::datatype {

using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;

namespace {

/// What the types differ in: their range, their default, and what they say.
template <class Type>
struct RangeOf;

template <>
struct RangeOf<Positive> {
  static constexpr const char* kName = "Positive";
  static constexpr double kDefault = 1;
  static constexpr bool contains(double value) { return value > 0; }
  static constexpr const char* kOutside = "Value should be greater than 0";
  static constexpr const char* kNotFinite = "Value should be a finite number greater than 0";
  static constexpr const char* kInvalidArray = "VORTIL:datatypes:invalidPositive";
  static constexpr const char* kInvalidText = "VORTIL:datatypes:invalidValuePositive";
};

template <>
struct RangeOf<LightingStrength> {
  static constexpr const char* kName = "LightingStrength";
  static constexpr double kDefault = 0;
  static constexpr bool contains(double value) { return value >= 0 && value <= 1; }
  static constexpr const char* kOutside = "Value should be between 0 and 1";
  static constexpr const char* kNotFinite = kOutside;
  static constexpr const char* kInvalidArray = "VORTIL:datatypes:invalidLightingStrength";
  static constexpr const char* kInvalidText = "VORTIL:datatypes:invalidValue_0_1";
};

constexpr const char* kOutsideRange = "VORTIL:datatypes:valueOutsideValidRange";

/// Why a number is no value; null if it is one.
template <class Type>
const char* faultOf(double value) {
  using Range = RangeOf<Type>;
  if (!std::isfinite(value)) return Range::kNotFinite;
  return Range::contains(value) ? nullptr : Range::kOutside;
}

double readScalar(const vxArray* array, const char* identifier) {
  if (!vg::isNumericClass(vxGetClassID(array)) || !vxIsScalar(array))
    throw InvalidValueException(identifier, "value not a numeric scalar");
  return vxGetScalar(array);
}

double readNumber(const char* text, const char* identifier, const char* fault) {
  try {
    return convert::parse_double_scalar(text);
  } catch (const convert::ParseException&) {
    throw InvalidValueException(identifier, fault);
  }
}

/// Of the number that `read` gives; what the type refuses becomes a host error.
template <class Type, class Read>
COSValue newValue(Read&& read) {
  try {
    return COSValue::fromPointer(new Type(read()));
  } catch (const InvalidValueException& error) {
    vxErrMsgWrapper(error.identifier().c_str(), error.text().c_str(), RangeOf<Type>::kName);
  }
}

template <class Type>
COSValue valueFromArray(COSValue array) {
  if (array.isNull()) return array;
  return newValue<Type>([array] {
    return readScalar(array.asPointer<const vxArray>(), RangeOf<Type>::kInvalidArray);
  });
}

/// Kept: the exception passes to the caller, unlike that of an array.
template <class Type>
COSValue valueFromText(COSValue text) {
  using Range = RangeOf<Type>;
  const double number =
      readNumber(text.asPointer<const char>(), Range::kInvalidText, Range::kOutside);
  return COSValue::fromPointer(new Type(number));
}

template <class Type>
COSValue textOf(COSValue value) {
  return COSValue::fromPointer(
      value.isNull() ? copyText("") : newRowText({value.asPointer<const Type>()->getValue()}));
}

template <class Type>
COSValue arrayOf(COSValue value) {
  return COSValue::fromPointer(vxCreateDoubleScalar(
      value.isNull() ? Type().getValue() : value.asPointer<const Type>()->getValue()));
}

struct PositiveInJava {
  using Value = Positive;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGDouble"};
  static constexpr const char* kFile = "objects/RangedScalarImpl";
  static constexpr const char* kNullText = "Invalid value for Positive type: NULL";

  static jobject toJava(const JavaClass& javaClass, const Positive& value) {
    return javaClass.create("(D)V", value.getValue());
  }
  static COSValue fromJava(const JavaObject& object) {
    return newValue<Positive>([&object] { return object.number("getValue"); });
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(PositiveJC, PositiveInJava)

template <class Type>
RangedScalar<Type>::RangedScalar() noexcept : value_(RangeOf<Type>::kDefault) {}

template <class Type>
RangedScalar<Type>::RangedScalar(double value) : value_(value) {
  if (const char* const fault = faultOf<Type>(value))
    throw InvalidValueException(kOutsideRange, fault);
}

template <class Type>
bool RangedScalar<Type>::isValid(double value, ErrorMessage* message) {
  const char* const fault = faultOf<Type>(value);
  if (fault && message) *message = ErrorMessage(kOutsideRange, fault);
  return !fault;
}

// clang-format off

#define VGDT_RANGED_SCALAR(Type)                                                                 \
  template class RangedScalar<Type>;                                                             \
  template <>                                                                                    \
  struct PropertyTypeTraits<Type##DataType> : PlainValues<Type> {                                \
    static constexpr std::size_t kBytes = 8;                                                     \
    static_assert(sizeof(Type) == kBytes);                                                       \
    static bool isEqual(const Type& a, const Type& b) { return nearlyEqual(a, b); }              \
  };                                                                                             \
  template class NamedDataType<Type##DataType>;                                                  \
  template class PropertyDataType<Type##DataType, Type>;                                         \
  double asDouble(const Type& value) noexcept { return value.getValue(); }                       \
  bool nearlyEqual(const Type& a, const Type& b) noexcept {                                      \
    return gui_objects::nearlyEqual(a.getValue(), b.getValue());                                 \
  }                                                                                              \
  COSValue Type##VC::to(COSValue value) const { return arrayOf<Type>(value); }                   \
  COSValue Type##VC::from(COSValue array) const { return valueFromArray<Type>(array); }          \
  COSValue Type##SC::to(COSValue value) const { return textOf<Type>(value); }                    \
  COSValue Type##SC::from(COSValue text) const { return valueFromText<Type>(text); }             \
  VGDT_REGISTER_TYPE(Type, init_VortilGraphicsDatatype_##Type##DataType,                         \
                     init_VortilGraphicsDatatype_##Type##DataType_callback)
VGDT_RANGED_SCALAR(Positive)
VGDT_RANGED_SCALAR(LightingStrength)
#undef VGDT_RANGED_SCALAR

// clang-format on

}  // namespace graphics::datatype
