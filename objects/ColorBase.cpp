#include <graphics/datatype/ColorBase.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/exceptions.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>
#include <vx/errors.h>

#include <algorithm>
#include <optional>

namespace graphics::datatype {
namespace {

namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::datatypes::RGBAColor;

double checkedChannel(double channel) {
  if (!(channel >= 0 && channel <= 1)) vxErrMsgId(VORTIL::vg::ColorBase::BadColorValue());
  return channel;
}

const ColorNameTable::ColorValue* findColor(const char* text) {
  try {
    return ColorNameTable::getInstance()->findColor(text);
  } catch (const AmbiguousNameException&) {
    vxErrMsgId(messages::AmbiguousName());
  }
}

/// What one of the host's parsers reads; nothing if it cannot read the text.
template <auto parse>
auto numbersIn(const char* text) -> std::optional<decltype(parse(text))> {
  try {
    return parse(text);
  } catch (const convert::ParseException&) {
    return std::nullopt;
  }
}

}  // namespace

void validateRGBAColorRange(const double& red, const double& green, const double& blue,
                            const double& alpha) {
  for (const double channel : {red, green, blue, alpha})
    checkedChannel(channel);
}

ColorBase::ColorBase(double red, double green, double blue, double alpha)
    : red_(checkedChannel(red)),
      green_(checkedChannel(green)),
      blue_(checkedChannel(blue)),
      alpha_(checkedChannel(alpha)) {}

void ColorBase::setRed(double red) {
  red_ = checkedChannel(red);
}
void ColorBase::setGreen(double green) {
  green_ = checkedChannel(green);
}
void ColorBase::setBlue(double blue) {
  blue_ = checkedChannel(blue);
}
void ColorBase::setAlpha(double alpha) {
  alpha_ = checkedChannel(alpha);
}

gui_objects::Color4d ColorBase::getAsColor4d() const {
  return {red_, green_, blue_, alpha_};
}

gui_objects::Color4b ColorBase::getAsColor4b() const {
  return getAsColor4d().asColor4b();
}

gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> ColorBase::getColorAsArray() const {
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
      vxCreateNumericMatrix(4, 1, vxUINT8_CLASS, vxREAL));
  const gui_objects::Color4b color = getAsColor4b();
  std::copy_n(color.data(), 4, static_cast<std::uint8_t*>(vxGetWritableData(array.get())));
  return array;
}

void ColorBase::setColorFromString(const char* text) {
  if (const auto* const named = findColor(text)) {
    const auto& [red, green, blue] = *named;
    setRed(red);
    setGreen(green);
    setBlue(blue);
  } else if (const auto three = numbersIn<convert::parse_1x3_double>(text)) {
    const auto& [red, green, blue] = *three;
    setRed(red);
    setGreen(green);
    setBlue(blue);
    setAlpha(1);  // a name leaves it alone
  } else if (const auto four = numbersIn<convert::parse_1x4_double>(text)) {
    const auto& [red, green, blue, alpha] = *four;
    setRed(red);
    setGreen(green);
    setBlue(blue);
    setAlpha(alpha);
  } else {
    vxErrMsgId(messages::ParseError());
  }
}

}  // namespace graphics::datatype
