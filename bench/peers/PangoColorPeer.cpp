// Pango: a colour from its name.

#include "colors.h"

#include <pango/pango.h>

namespace peers {
namespace {

PangoColor parse(const char* text) {
  PangoColor color{};
  if (!pango_color_parse(&color, text)) fail(std::string("Pango does not know ") + text);
  return color;
}

Rgb rgbOf(const PangoColor& color) {
  constexpr double kFull = 0xFFFF;
  return {color.red / kFull, color.green / kFull, color.blue / kFull};
}

void addPangoColor() {
  competeInMaking(kColorFromName, "Pango", Goal::atMost(0.5), kColorName, parse, rgbOf);
}

[[maybe_unused]] const bool added = addContender(addPangoColor);

}  // namespace
}  // namespace peers
