#include "CaseFolding.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/exceptions.h>
#include <messages/catalog.h>
#include <ut/console.h>
#include <vx/errors.h>

#include <iterator>
#include <utility>

namespace graphics::datatype {
namespace {

struct NamedColor {
  const char* name;
  ColorNameTable::ColorValue color;
};
constexpr NamedColor kDefaults[] = {
    {"yellow", {1, 1, 0}},     {"magenta", {1, 0, 1}},
    {"cyan", {0, 1, 1}},       {"red", {1, 0, 0}},
    {"green", {0, 1, 0}},      {"g", {0, 1, 0}},
    {"blue", {0, 0, 1}},       {"b", {0, 0, 1}},
    {"black", {0, 0, 0}},      {"w", {1, 1, 1}},
    {"white", {1, 1, 1}},      {"k", {0, 0, 0}},
    {"gray", {0.5, 0.5, 0.5}}, {"defaultaxesboxcolor", {0.2, 0.2, 0.2}},
};

/// A text that is read as if it were in lower case, which takes no copy.
struct FoldedText {
  const char* text;
};

/// How a name compares with a text, byte by byte.
struct Comparison {
  bool isNameLess;
  bool doesTextBeginName;
  bool areEqual;
};

Comparison compare(const std::string& name, FoldedText folded) {
  const char* text = folded.text;
  for (const char inName : name) {
    if (*text == '\0') return {false, true, false};
    const char inText = lowerCased(*text++);
    if (inName != inText)
      return {static_cast<unsigned char>(inName) < static_cast<unsigned char>(inText), false,
              false};
  }
  const bool areEqual = *text == '\0';
  return {!areEqual, areEqual, areEqual};
}

/// What the map's std::less compares a name and a text by.
bool operator<(const std::string& name, FoldedText text) {
  return compare(name, text).isNameLess;
}

/// The names that a text begins stand next to each other, and one that equals it is the first.
struct Match {
  ColorNameTable::ColorMap::const_iterator first;
  bool isMissing;
  bool isAmbiguous;
};

Match find(const ColorNameTable::ColorMap& colors, const char* text) {
  const auto doesBegin = [&](ColorNameTable::ColorMap::const_iterator at) {
    return at != colors.end() && compare(at->first, {text}).doesTextBeginName;
  };
  if (!text) return {colors.end(), true, false};
  const auto first = colors.lower_bound(FoldedText{text});
  if (!doesBegin(first)) return {first, true, false};
  const bool isExact = compare(first->first, {text}).areEqual;
  return {first, false, !isExact && doesBegin(std::next(first))};
}

}  // namespace

ColorNameTable* ColorNameTable::getInstance() {
  static ColorNameTable* const instance = new ColorNameTable;
  return instance;
}

ColorNameTable::ColorNameTable() {
  reset();
}

void ColorNameTable::reset() {
  ColorMap defaults;
  for (const auto& [name, color] : kDefaults)
    defaults.emplace(name, color);
  colors_.swap(defaults);
}

ColorNameTable::ColorValue ColorNameTable::createColorValueFromRGB(double red, double green,
                                                                   double blue) {
  return {red, green, blue};
}

bool ColorNameTable::isNameInTable(const char* name) const {
  return !find(colors_, name).isMissing;
}

ColorNameTable::ColorValue ColorNameTable::getColorValue(const char* name) const {
  const Match match = find(colors_, name);
  if (match.isMissing) throw MissingNameException();
  if (match.isAmbiguous) {
    utPrintf("graphics::datatype::ColorNameTable::getColorValue ambiguous name: %s\n", name);
    throw AmbiguousNameException();
  }
  return match.first->second;
}

void ColorNameTable::addNamedColor(std::string name, double red, double green, double blue,
                                   bool overwrite) {
  if (!overwrite && isNameInTable(name.c_str()))
    vxErrMsgId(VORTIL::datatypes::colornametable::AddNameColor(
        "ColorNameTable::addNamedColor, color name: " + name +
        " is already used in the color table."));
  colors_.insert_or_assign(std::move(name), createColorValueFromRGB(red, green, blue));
}

const ColorNameTable::ColorMap& ColorNameTable::getColorMap() const {
  return colors_;
}

std::vector<ColorNameTable::ColorValue> ColorNameTable::getColors() const {
  std::vector<ColorValue> colors;
  colors.reserve(colors_.size());
  for (const auto& [name, color] : colors_)
    colors.push_back(color);
  return colors;
}

std::vector<std::string> ColorNameTable::getNames() const {
  std::vector<std::string> names;
  names.reserve(colors_.size());
  for (const auto& [name, color] : colors_)
    names.push_back(name);
  return names;
}

}  // namespace graphics::datatype
