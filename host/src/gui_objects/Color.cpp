#include <gui_objects/Color.h>

#include <algorithm>
#include <cmath>

namespace gui_objects {
namespace {

constexpr double kWhole = 255;

std::uint8_t byteOf(double channel) {
  const double level = std::round(channel * kWhole);
  if (!(level > 0)) return 0;  // true for NaN, too
  return static_cast<std::uint8_t>(std::min(level, kWhole));
}

}  // namespace

Color4d Color4b::asColor4d() const noexcept {
  return {red() / kWhole, green() / kWhole, blue() / kWhole, alpha() / kWhole};
}

Color4b Color4d::asColor4b() const noexcept {
  return {byteOf(red_), byteOf(green_), byteOf(blue_), byteOf(alpha_)};
}

}  // namespace gui_objects
