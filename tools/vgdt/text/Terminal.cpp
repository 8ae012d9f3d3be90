#include "text/Terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace vgdt {
namespace {

using gui_objects::Color4b;

// Of the 256 colours that terminals agree on, 16 to 231 are a cube with these levels in each
// direction, and 232 to 255 greys from 8 upwards in steps of 10. The first 16 are the user's.
constexpr std::array<int, 6> kCubeLevels = {0, 95, 135, 175, 215, 255};
constexpr int kFirstOfCube = 16;
constexpr int kFirstGrey = 232;
constexpr int kGreys = 24;
constexpr int greyLevel(int index) {
  return 8 + 10 * index;
}

int squaredDistance(const Color4b& color, int red, int green, int blue) {
  const auto square = [](int difference) { return difference * difference; };
  return square(color.red() - red) + square(color.green() - green) + square(color.blue() - blue);
}

int nearestCubeIndex(int channel) {
  const auto distance = [channel](int level) { return std::abs(level - channel); };
  return static_cast<int>(std::ranges::min_element(kCubeLevels, {}, distance) -
                          kCubeLevels.begin());
}

int nearestInPalette(const Color4b& color) {
  const int red = nearestCubeIndex(color.red());
  const int green = nearestCubeIndex(color.green());
  const int blue = nearestCubeIndex(color.blue());
  const int mean = (color.red() + color.green() + color.blue()) / 3;
  const int grey = std::clamp((mean - greyLevel(0) + 5) / 10, 0, kGreys - 1);
  const auto level = [](int index) { return kCubeLevels[static_cast<std::size_t>(index)]; };
  const int greyDistance =
      squaredDistance(color, greyLevel(grey), greyLevel(grey), greyLevel(grey));
  return greyDistance < squaredDistance(color, level(red), level(green), level(blue))
             ? kFirstGrey + grey
             : kFirstOfCube + 36 * red + 6 * green + blue;
}

}  // namespace

ColorDepth colorDepth(bool isTerminal, const char* noColor, const char* term,
                      const char* colorTerm) {
  const bool isRefused = noColor && *noColor != '\0';
  const bool isDumb = term && std::string_view(term) == "dumb";
  if (!isTerminal || isRefused || isDumb) return ColorDepth::None;
  const std::string_view depth = colorTerm ? colorTerm : "";
  return depth == "truecolor" || depth == "24bit" ? ColorDepth::True : ColorDepth::Palette;
}

ColorDepth colorDepth(int fileDescriptor) {
  return colorDepth(isatty(fileDescriptor) != 0, std::getenv("NO_COLOR"), std::getenv("TERM"),
                    std::getenv("COLORTERM"));
}

std::string Style::onColor(std::string_view text, const Color4b& color) const {
  return marked(text, depth_ == ColorDepth::True
                          ? fmt::format("48;2;{};{};{}", color.red(), color.green(), color.blue())
                          : fmt::format("48;5;{}", nearestInPalette(color)));
}

std::string Style::marked(std::string_view text, std::string_view code) const {
  return isColored() ? fmt::format("\033[{}m{}\033[0m", code, text) : std::string(text);
}

}  // namespace vgdt
