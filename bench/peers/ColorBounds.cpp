// Lower bounds of the colours, without styles in the place of a colour.

#include "bounds.h"
#include "colors.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/RGBAColorDataType.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace peers {
namespace {

using graphics::datatype::RGBAColor;

struct NamedColor {
  const char* name;
  Rgb color;
};

/// The names that the library's table begins with, in its order.
std::vector<NamedColor> defaultColors() {
  static const graphics::datatype::ColorNameTable table;
  std::vector<NamedColor> colors;
  for (const auto& [name, color] : table.getColorMap())
    colors.push_back({name.c_str(), {color.red, color.green, color.blue}});
  return colors;
}
const std::vector<NamedColor> kNamedColors = defaultColors();
constexpr Rgb kNoColor{-1, -1, -1};

Rgb named(const char* text) {
  for (const auto& [name, color] : kNamedColors)
    if (std::strcmp(text, name) == 0) return color;
  return kNoColor;
}

/// The colour of the only name that the text begins; not of one that equals it, as named() does.
Rgb abbreviated(const char* text) {
  const std::size_t size = std::strlen(text);
  const NamedColor* found = nullptr;
  for (const NamedColor& entry : kNamedColors) {
    if (std::strncmp(text, entry.name, size) != 0) continue;
    if (found) return kNoColor;
    found = &entry;
  }
  return found ? found->color : kNoColor;
}

void addNames() {
  const auto namedInBlock = [](const char* text) { return newBlock<RGBAColor>(named(text)); };
  const auto abbreviatedInBlock = [](const char* text) {
    return newBlock<RGBAColor>(abbreviated(text));
  };
  competeInMaking(kColorLookUp, "linear-bound", Goal::kNone, kColorName, named);
  competeInMaking(kColorFromName, "linear-bound", Goal::kNone, kColorName, named);
  competeInMaking(kColorFromName, "linear-bound+block", Goal::kNone, kColorName, namedInBlock,
                  kInBlock);
  competeInMaking(kColorFromAbbreviation, "linear-bound", Goal::kNone, kColorAbbreviation,
                  abbreviated);
  competeInMaking(kColorFromAbbreviation, "linear-bound+block", Goal::kNone, kColorAbbreviation,
                  abbreviatedInBlock, kInBlock);
}

void addColorBounds() {
  addNames();
  addTextBounds<RGBAColor>(kColorFromNumbers, Goal::kTwice, kColorNumbers);
  addArrayBound<RGBAColor>(kColorFromArray, Goal::kNone, kColorNumbers.numbers);
}

[[maybe_unused]] const bool added = addContender(addColorBounds);

}  // namespace
}  // namespace peers
