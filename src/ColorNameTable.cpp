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

/// How a name compares with a text in lower case, byte by byte.
enum class Comparison { kNameIsLess, kTextIsLess, kTextBeginsName, kEqual };

Comparison compare(const std::string& name, const char* text) {
  for (const char inName : name) {
    if (*text == '\0') return Comparison::kTextBeginsName;
    const char inText = lowerCased(*text++);
    if (inName != inText)
      return static_cast<unsigned char>(inName) < static_cast<unsigned char>(inText)
                 ? Comparison::kNameIsLess
                 : Comparison::kTextIsLess;
  }
  return *text == '\0' ? Comparison::kEqual : Comparison::kNameIsLess;
}

struct FirstCharacter {
  char character;
};

/// The order of the names by their first characters, by which the map finds where those with a
/// certain one begin. An empty name comes first.
bool operator<(const std::string& name, FirstCharacter first) {
  return static_cast<unsigned char>(name.c_str()[0]) < static_cast<unsigned char>(first.character);
}

struct Match {
  const ColorNameTable::ColorValue* color;  ///< null if the text begins no name
  bool isAmbiguous;
};

/// The names that a text begins stand next to each other, and one that equals it is the first.
Match find(const ColorNameTable::ColorMap& colors, const char* text) {
  if (!text) return {nullptr, false};
  for (auto at = colors.lower_bound(FirstCharacter{lowerCased(*text)}); at != colors.end(); ++at) {
    const Comparison found = compare(at->first, text);
    if (found == Comparison::kNameIsLess) continue;
    if (found == Comparison::kTextIsLess) break;
    const auto next = std::next(at);
    const bool isAmbiguous = found == Comparison::kTextBeginsName && next != colors.end() &&
                             compare(next->first, text) == Comparison::kTextBeginsName;
    return {&at->second, isAmbiguous};
  }
  return {nullptr, false};
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
  return find(colors_, name).color != nullptr;
}

const ColorNameTable::ColorValue* ColorNameTable::findColor(const char* name) const {
  const Match match = find(colors_, name);
  if (match.isAmbiguous) {
    utPrintf("graphics::datatype::ColorNameTable::getColorValue ambiguous name: %s\n", name);
    throw AmbiguousNameException();
  }
  return match.color;
}

ColorNameTable::ColorValue ColorNameTable::getColorValue(const char* name) const {
  const ColorValue* const color = findColor(name);
  if (!color) throw MissingNameException();
  return *color;
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
