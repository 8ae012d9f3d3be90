#include "text/ColorWords.h"

#include "ArrayElements.h"
#include "text/ColorForms.h"
#include "text/Faults.h"
#include "text/Nearest.h"
#include "text/NumberText.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/enumerated_types.h>
#include <gui_objects/convert_from_string_utils.h>

#include <algorithm>
#include <locale>
#include <span>
#include <sstream>

namespace vgdt {
namespace {

namespace convert = gui_objects::convert_from_string_utils;
using graphics::datatype::ColorNameTable;
using graphics::datatype::VGTypedEnumStringType;

const ColorNameTable::ColorMap& namedColors() {
  return ColorNameTable::getInstance()->getColorMap();
}

/// "green is 2; a channel is a number from 0 to 1", of the first channel that is none.
template <class T>
std::optional<std::string> channelFault(std::span<const T> channels) {
  constexpr const char* kNames[] = {"red", "green", "blue", "alpha"};
  const auto bad = std::ranges::find_if_not(channels, [](T c) { return c >= 0 && c <= 1; });
  if (bad == channels.end()) return std::nullopt;
  return fmt::format("{} is {}; a channel is a number from 0 to 1", kNames[bad - channels.begin()],
                     numberText(*bad));
}

/// Which numbers make a value.
struct NumberRules {
  bool (*takesClass)(const vxArray* array);
  const char* classes;
  std::size_t least;
  std::size_t most;
};

bool isNumeric(const vxArray* array) {
  return vxIsNumeric(array);
}
bool isDoubleOrLogical(const vxArray* array) {
  return vxGetClassID(array) == vxDOUBLE_CLASS || vxGetClassID(array) == vxLOGICAL_CLASS;
}

/// What is wrong with the class of an array and its number of elements.
std::vector<std::string> formFaults(const vxArray* array, const NumberRules& rules) {
  std::vector<std::string> faults;
  if (!rules.takesClass(array)) faults.push_back(classFault(array, rules.classes));
  if (const auto fault = countFault(array, rules.least, rules.most)) faults.push_back(*fault);
  return faults;
}

std::vector<std::string> arrayFaults(const vxArray* array, const NumberRules& rules) {
  std::vector<std::string> faults = formFaults(array, rules);
  if (!faults.empty()) return faults;
  withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    if constexpr (std::is_floating_point_v<T>)
      if (const auto fault = channelFault(elementsOf<T>(array))) faults.push_back(*fault);
  });
  return faults;
}

/// The name that equals a text, or all that it begins, as the colour name table has it.
std::vector<std::string> namesMeantBy(std::string_view text) {
  const std::string beginning = lowerCase(text);
  if (namedColors().contains(beginning)) return {beginning};
  std::vector<std::string> names;
  for (auto at = namedColors().lower_bound(beginning);
       at != namedColors().end() && at->first.starts_with(beginning); ++at)
    names.push_back(at->first);
  return names;
}

std::optional<std::string> styleMeantBy(const std::string& text,
                                        const VGTypedEnumStringType& styles) {
  const auto style = styles.findEnumValue(text.c_str());
  return style ? std::optional<std::string>(styles.getEnumString(*style)) : std::nullopt;
}

/// The word that stands for numbers, and is refused.
bool isStandIn(const std::string& style) {
  return style == "color" || style == "alpha";
}

std::string standInFault(const std::string& style) {
  return fmt::format("the word \"{}\" stands for numbers and is no value itself", style);
}

std::vector<std::string> wordsOfStyles(const VGTypedEnumStringType& styles) {
  std::vector<std::string> words = styles.getEnumStrings();
  std::erase_if(words, isStandIn);
  return words;
}

/// Why numbers are no colour; none for a text of another kind.
std::optional<std::string> numbersFault(const std::string& text) {
  const auto size = sizeOfNumbers(text);
  if (!size) return bracketsFault(text);
  const auto [rows, columns] = *size;
  if (rows != 1 || (columns != 3 && columns != 4)) return sizeFault(*size, "1-by-3 or 1-by-4");
  const vcos::ArrayOwner numbers(convert::parse_mxn(rows, columns, vxDOUBLE_CLASS, text.c_str()));
  return channelFault(elementsOf<double>(numbers.get()));
}

/// Why a text that is no style stands for no name.
std::string nameFault(const std::string& text) {
  if (trimmed(text).size() < text.size() && !namesMeantBy(trimmed(text)).empty())
    return "there is white space around the colour name";
  const std::string folded = lowerCase(text);
  for (const auto& [name, color] : namedColors())
    if (lowerCase(name) == folded)
      return fmt::format("\"{}\" is in the colour table, but no text finds a name with capitals",
                         shortened(name));
  return fmt::format("no word and no colour name begins with \"{}\"", shortened(text));
}

/// A name with a capital letter is left out, since no text finds it.
std::optional<std::string> nearestWord(const std::string& text,
                                       const VGTypedEnumStringType& styles) {
  std::vector<std::string> words = wordsOfStyles(styles);
  for (const auto& [name, color] : namedColors())
    if (lowerCase(name) == name) words.push_back(name);
  return nearestName(trimmed(text), words);
}

/// For a text that stands for one name, whose colour is no colour.
Explanation explainNamed(const std::string& name) {
  const auto channels = channelsOf(namedColors().at(name));
  const auto fault = channelFault(std::span<const double>(channels));
  if (!fault) return {};
  return {.faults = {fmt::format("the colour name \"{}\": {}", shortened(name), *fault)}};
}

Explanation explainColorText(const std::string& text, const VGTypedEnumStringType& styles) {
  std::vector<std::string> names = namesMeantBy(text);
  if (trimmed(text).empty() && names.size() != 1) return {.faults = {kEmptyText}};
  const auto style = styleMeantBy(text, styles);
  if (style && !isStandIn(*style)) names.insert(names.begin(), "the style " + *style);
  if (names.size() > 1) return {.candidates = names};
  if (names.size() == 1) return explainNamed(names.front());
  if (style) return {.faults = {standInFault(*style)}};
  if (const auto fault = numbersFault(text)) return {.faults = {*fault}};
  return {.faults = {nameFault(text)}, .nearest = nearestWord(text, styles)};
}

Explanation explainColor(const Refusal& refusal, const VGTypedEnumStringType& styles,
                         const NumberRules& rules) {
  if (const auto text = textTried(refusal)) return explainColorText(*text, styles);
  if (!refusal.array) return {};
  return {.faults = arrayFaults(refusal.array, rules)};
}

/// What a stream reads from the beginning of a text, as the type does.
std::optional<double> leadingNumber(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double number = 0;
  return stream >> number ? std::optional(number) : std::nullopt;
}

std::string opacityFault(const std::string& number) {
  return fmt::format("alpha is {}; it is a number from 0 to 1", number);
}

Explanation explainAlphaText(const std::string& text, const VGTypedEnumStringType& styles) {
  if (const auto style = styleMeantBy(text, styles)) return {.faults = {standInFault(*style)}};
  if (const auto number = leadingNumber(text))
    return {.faults = {opacityFault(numberText(*number))}};
  if (trimmed(text).empty()) return {.faults = {kEmptyText}};
  return {.faults = {fmt::format("no word begins with \"{}\", and it does not begin with a number",
                                 shortened(text))},
          .nearest = nearestName(trimmed(text), wordsOfStyles(styles))};
}

std::vector<std::string> opacityFaults(const vxArray* array) {
  std::vector<std::string> faults = formFaults(array, {isNumeric, "numeric or char", 1, 1});
  if (!faults.empty()) return faults;
  withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    faults.push_back(opacityFault(numberText(elementsOf<T>(array)[0])));
  });
  return faults;
}

constexpr NumberRules kThreeNumbers = {isNumeric, "numeric or char", 3, 3};

}  // namespace

Explanation explainRGBAColor(const Refusal& refusal) {
  return explainColor(refusal, *graphics::datatype::ColorStyle::getInstance(),
                      {isDoubleOrLogical, "double, logical or char", 3, 4});
}

Explanation explainMarkerColor(const Refusal& refusal) {
  return explainColor(refusal, *graphics::datatype::MarkerColorStyle::getInstance(), kThreeNumbers);
}

Explanation explainMeshColor(const Refusal& refusal) {
  return explainColor(refusal, *graphics::datatype::MeshColorStyle::getInstance(), kThreeNumbers);
}

Explanation explainMeshAlpha(const Refusal& refusal) {
  const auto& styles = *graphics::datatype::MeshAlphaStyle::getInstance();
  if (const auto text = textTried(refusal)) return explainAlphaText(*text, styles);
  if (!refusal.array) return {};
  return {.faults = opacityFaults(refusal.array)};
}

}  // namespace vgdt
