// A type with rules of its own, as docs/adding-a-type.md shows it: a number from 0 to 100, "25%" as
// a text. The blocks of that page stand in this file word for word.

#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <ut/memory.h>
#include <vcos/COSTypeConversion.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

#include <charconv>
#include <string_view>

namespace graphics::datatype {

/// A share of a whole, from 0 to 100.
class Percentage final : public HostAllocated {
 public:
  Percentage() = default;
  explicit Percentage(double percent) : percent_(percent) {}

  double percent() const { return percent_; }
  bool operator==(const Percentage& other) const { return percent_ == other.percent_; }

 private:
  double percent_ = 100;
};

class PercentageDataType final : public PropertyDataType<PercentageDataType, Percentage> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Percentage";
};

class PercentageVC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue array) const override;
};

class PercentageSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue text) const override;
};

class PercentageJC final : public ArrayJavaConverter<PercentageVC> {};

template <>
struct PropertyTypeTraits<PercentageDataType> : PlainValues<Percentage> {
  static constexpr std::size_t kBytes = 8;
  static_assert(sizeof(Percentage) == kBytes);
};
template class NamedDataType<PercentageDataType>;
template class PropertyDataType<PercentageDataType, Percentage>;

namespace {

using vcos::COSValue;

bool isPercentage(double number) {
  return number >= 0 && number <= 100;  // false for NaN
}

[[noreturn]] void refuseText(const char* text) {
  vxErrMsgWrapper(
      "datatypes:Percentage:BadText",
      "'%s' is no percentage: give a number from 0 to 100 and a percent sign, as in 25%%.", text);
}

}  // namespace

COSValue PercentageVC::to(COSValue value) const {
  const auto* percentage = value.asPointer<const Percentage>();
  return COSValue::fromPointer(percentage ? vxCreateDoubleScalar(percentage->percent())
                                          : vxCreateDoubleMatrix(0, 0, vxREAL));
}

COSValue PercentageVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto* given = array.asPointer<const vxArray>();
  if (vxGetClassID(given) != vxDOUBLE_CLASS || !vxIsScalar(given) ||
      !isPercentage(vxGetScalar(given)))
    vxErrMsgWrapper("datatypes:Percentage:BadArray",
                    "An array of class %s is no percentage: give one double from 0 to 100.",
                    vxGetClassName(given));
  return COSValue::fromPointer(new Percentage(vxGetScalar(given)));
}

COSValue PercentageSC::to(COSValue value) const {
  if (value.isNull()) return value;
  char text[32] = {};
  *std::to_chars(text, text + 30, value.asPointer<const Percentage>()->percent()).ptr = '%';
  char* copy = utStrdup(text);
  if (!copy) throw vcos::COSOutOfMemoryException();
  return COSValue::fromPointer(copy);
}

COSValue PercentageSC::from(COSValue text) const {
  if (text.isNull()) return text;
  const std::string_view given = text.asPointer<const char>();
  double percent = 0;
  const auto [end, error] = std::from_chars(given.begin(), given.end(), percent);
  if (error != std::errc() || std::string_view(end, given.end()) != "%" || !isPercentage(percent))
    refuseText(given.data());
  return COSValue::fromPointer(new Percentage(percent));
}

VGDT_REGISTER_TYPE(Percentage, init_VortilGraphicsDatatype_PercentageDataType,
                   init_VortilGraphicsDatatype_PercentageDataType_callback)

}  // namespace graphics::datatype
