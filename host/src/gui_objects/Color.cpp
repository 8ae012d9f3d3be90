#include <gui_objects/Color.h>

#include <cmath>

namespace gui_objects {
namespace {

constexpr double kWhole = 255;

std::uint8_t byteOf(double channel) {
  const double scaled = std::floor(channel * kWhole + 0.5);
  if (!(scaled > 0)) return 0;  // nor is NaN
  return static_cast<std::uint8_t>(scaled < kWhole ? scaled : kWhole);
}

}  // namespace

Color4d Color4b::asColor4d() const noexcept {
  return {red() / kWhole, green() / kWhole, blue() / kWhole, alpha() / kWhole};
}

Color4b Color4d::asColor4b() const noexcept {
  return {byteOf(red_), byteOf(green_), byteOf(blue_), byteOf(alpha_)};
}

}  // namespace gui_objects
