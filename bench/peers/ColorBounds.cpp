// Lower bounds of the colours: the least work that gives the same three numbers, without a class
// system, without styles in the place of a colour, and without a check of the numbers.

#include "colors.h"

#include <graphics/datatype/ColorNameTable.h>
#include <ut/memory.h>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace peers {
namespace {

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

/// The three numbers of a text in brackets, one blank between them.
Rgb readByFromChars(const char* text) {
  const char* const end = text + std::strlen(text);
  double numbers[3] = {};
  for (double& number : numbers)
    text = std::from_chars(text + 1, end, number).ptr;
  return {numbers[0], numbers[1], numbers[2]};
}

Rgb readByStrtod(const char* text) {
  double numbers[3] = {};
  for (double& number : numbers) {
    char* stop = nullptr;
    number = std::strtod(text + 1, &stop);
    text = stop;
  }
  return {numbers[0], numbers[1], numbers[2]};
}

struct Free {
  void operator()(Rgb* block) const { utFree(block); }
};
using Block = std::unique_ptr<Rgb, Free>;

/// The colour at the beginning of a block of the host's memory as large as a value of RGBAColor.
Block newBlock(const Rgb& color) {
  constexpr std::size_t kBytes = 40;
  void* const storage = utCalloc(1, kBytes);
  if (!storage) fail("out of memory");
  return Block(new (storage) Rgb(color));
}

constexpr auto kAsItIs = [](const Rgb& color) { return color; };
constexpr auto kInBlock = [](const Block& block) { return *block; };

void addNames() {
  const auto namedInBlock = [](const char* text) { return newBlock(named(text)); };
  const auto abbreviatedInBlock = [](const char* text) { return newBlock(abbreviated(text)); };
  competeWithColor(kColorLookUp, "linear-bound", Goal::kNone, kColorName, named, kAsItIs);
  competeWithColor(kColorFromName, "linear-bound", Goal::kNone, kColorName, named, kAsItIs);
  competeWithColor(kColorFromName, "linear-bound+block", Goal::kNone, kColorName, namedInBlock,
                   kInBlock);
  competeWithColor(kColorFromAbbreviation, "linear-bound", Goal::kNone, kColorAbbreviation,
                   abbreviated, kAsItIs);
  competeWithColor(kColorFromAbbreviation, "linear-bound+block", Goal::kNone, kColorAbbreviation,
                   abbreviatedInBlock, kInBlock);
}

void addNumbers() {
  competeWithColor(kColorFromNumbers, "from_chars", Goal::kTwice, kColorNumbers, readByFromChars,
                   kAsItIs);
  competeWithColor(
      kColorFromNumbers, "from_chars+block", Goal::kNone, kColorNumbers,
      [](const char* text) { return newBlock(readByFromChars(text)); }, kInBlock);
  competeWithColor(kColorFromNumbers, "strtod", Goal::kAhead, kColorNumbers, readByStrtod, kAsItIs);
}

void addArray() {
  static constexpr Rgb kElements = kColorNumbers.color;
  competeWithColor(
      kColorFromArray, "copy+block", Goal::kNone, ColorInput<const Rgb*>{&kElements, kElements},
      [](const Rgb* elements) { return newBlock(*elements); }, kInBlock);
}

void addColorBounds() {
  addNames();
  addNumbers();
  addArray();
}

[[maybe_unused]] const bool added = addContender(addColorBounds);

}  // namespace
}  // namespace peers
