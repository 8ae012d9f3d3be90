#include "text/ColorForms.h"

#include "text/NumberText.h"

#include <fmt/format.h>

#include <algorithm>

namespace vgdt {

using graphics::datatype::ColorNameTable;
using gui_objects::Color4b;

std::array<double, 3> channelsOf(const ColorNameTable::ColorValue& color) {
  return {color.red, color.green, color.blue};
}

std::string channelsText(const ColorNameTable::ColorValue& color) {
  return fmt::format("[{} {} {}]", numberText(color.red), numberText(color.green),
                     numberText(color.blue));
}

std::optional<Color4b> drawnBytes(const ColorNameTable::ColorValue& color) {
  const auto isFraction = [](double channel) { return channel >= 0 && channel <= 1; };
  if (!std::ranges::all_of(channelsOf(color), isFraction)) return std::nullopt;
  return gui_objects::Color4d(color.red, color.green, color.blue, 1).asColor4b();
}

std::string hexCode(const Color4b& bytes) {
  return fmt::format("#{:02x}{:02x}{:02x}", bytes.red(), bytes.green(), bytes.blue());
}

}  // namespace vgdt
