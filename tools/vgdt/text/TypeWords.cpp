#include "text/TypeWords.h"

#include "text/ColorWords.h"
#include "text/GeometryWords.h"
#include "text/NumberText.h"
#include "text/ShapedWords.h"
#include "text/StringWords.h"

#include <fmt/format.h>

#include <cstdint>
#include <unordered_map>

namespace vgdt {
namespace {

constexpr const char* kColorName =
    "a name of the colour table, which \"vgdt colors\" lists, or the beginning of only one";
constexpr const char* kColorNumbers =
    "numbers from 0 to 1 in brackets, as a text: [red green blue] or [red green blue alpha]";
constexpr const char* kThreeFractions =
    "3 elements of class double or single, 0 to 1: red, green and blue";
constexpr const char* kThreeLevels = "3 elements of an integer class: levels, 0 to 255";

Explanation explainHandle(const Refusal& refusal) {
  const vxArray* const array = refusal.array;
  if (!array) return {};
  if (vxGetClassID(array) != vxDOUBLE_CLASS)
    return {.faults = {fmt::format("the class is {}", vxGetClassName(array))}};
  return {.faults = {fmt::format("{} is the number of no living object",
                                 numberText(*static_cast<const double*>(vxGetData(array))))}};
}

Explanation explainCallback(const Refusal& refusal) {
  const vxArray* array = refusal.array;
  if (!array) return {};
  const bool isCell = vxGetClassID(array) == vxCELL_CLASS;
  if (isCell && vxIsEmpty(array)) return {.faults = {"the cell array is empty"}};
  if (isCell) array = vxGetCell(array, 0);
  const char* const what = isCell ? "the first cell" : "the value";
  if (!array) return {.faults = {"the first cell holds nothing"}};
  if (vxGetClassID(array) != vxCHAR_CLASS)
    return {.faults = {fmt::format("{} is of class {}", what, vxGetClassName(array))}};
  return {.faults = {fmt::format(
              "{} is {}; code is one row", what,
              vghost::sizeText(vxGetDimensions(array), vxGetNumberOfDimensions(array)))}};
}

/// The types with rules of their own, by name.
const std::unordered_map<std::string, TypeWords>& ownWords() {
  static const std::unordered_map<std::string, TypeWords> rows = {
      {"Callback",
       {.family = "callback",
        .inShort = "code, a function, a cell array of these and arguments",
        .values = {"a char row of code, or an empty char array, which does nothing",
                   "a function handle",
                   "a cell array with one of these in front, and its arguments behind"},
        .texts = {"code"},
        .samples = {"'redraw'", "@redraw", "{@redraw, 1}", "5", "{}", "['ab';'cd']"},
        .explain = explainCallback}},
      {"COSInterface",
       {.family = "reference",
        .inShort = "an object, or none",
        .values = {"an object array, of which the first one counts", "the number of an object",
                   "anything else, which refers to none"},
        .samples = {"empty_handle", "[]", "'none'"}}},
      {"HandleOrEmpty",
       {.family = "reference",
        .inShort = "an object, the number of one, or empty",
        .values = {"an object array, of which the first one counts",
                   "the number of a living object, of class double",
                   "an empty array of any class, which refers to none"},
        .samples = {"[]", "empty_handle", "-1", "'none'"},
        .explain = explainHandle}},
      {"JavaPeer",
       {.family = "reference",
        .inShort = "a Java object, or none",
        .values =
            {"any array: the Java object that comes closest to it, while a Java machine runs"},
        .samples = {"1.5", "'text'"}}},
      {"string", {.family = "scalar", .inShort = "any text", .values = {"any text"}}},
      {"ColorTable",
       {.family = "color",
        .inShort = "struct: a field of 3 or more numbers for each name",
        .values =
            {"a struct; each field that has 3 or more real elements of class double gives the "
             "colour of that name",
             "any other array, which changes nothing"},
        .samples = {"struct('red',[1 0 0])", "[]"}}},
      {"MarkerColor",
       {.family = "color",
        .inShort = "none, flat, auto, a colour name, 3 numbers",
        .values = {kThreeFractions, kThreeLevels,
                   "one of the words none, flat, auto, or the beginning of one", kColorName,
                   kColorNumbers},
        .samples = {"'red'", "uint8([255 128 0])", "'flat'", "[0 2 0]", "'bl'", "[1 0 0 1]"},
        .explain = explainMarkerColor}},
      {"MeshAlpha",
       {.family = "color",
        .inShort = "flat, interp, texturemap, a number from 0 to 1",
        .values = {"1 element of a numeric class, 0 to 1",
                   "one of the words flat, interp, texturemap, or the beginning of one",
                   "a text that begins with a number from 0 to 1"},
        .samples = {"0.5", "'flat'", "'0.25'", "2", "'alpha'", "[0.5 1]"},
        .explain = explainMeshAlpha}},
      {"MeshColor",
       {.family = "color",
        .inShort = "none, flat, interp, texturemap, a colour name, 3 numbers",
        .values = {kThreeFractions, kThreeLevels,
                   "one of the words none, flat, interp, texturemap, or the beginning of one",
                   kColorName, kColorNumbers},
        .samples = {"'red'", "single([1 0.5 0])", "'interp'", "[0 2 0]", "true", "[1 0]"},
        .explain = explainMeshColor}},
      {"RGBAColor",
       {.family = "color",
        .inShort = "none, a colour name, 3 or 4 numbers from 0 to 1",
        .values =
            {"3 or 4 elements of class double, 0 to 1, or logical: red, green, blue, and alpha, "
             "which is 1 if left out",
             "the word none, or its beginning", kColorName, kColorNumbers},
        .samples = {"'red'", "[1 0.5 0]", "'none'", "[0 2 0]", "'bl'", "uint8([255 0 0])"},
        .explain = explainRGBAColor}},
  };
  return rows;
}

/// By the name and the size of the type, which say what its text conversion reads.
std::string textsOfScalar(const Type& scalar) {
  const std::size_t bits = scalar.access.dataType().getSizeInBits();
  if (bits == 8) return "one character of one byte";
  const std::uint64_t max = UINT64_MAX >> (64 - bits);
  if (scalar.name.starts_with("uint"))
    return fmt::format("a whole number up to {}; -1 stands for that, -2 for the one before it",
                       max);
  if (scalar.name.starts_with("int"))
    return fmt::format("a whole number, -{} to {}", max / 2 + 1, max / 2);
  return "a number, or nan, inf, infinity: all in lower or all in upper case";
}

std::string familyOf(const Type& type) {
  if (type.isScalar) return "scalar";
  if (type.isImmediate()) return "logical";
  return isEnumerated(type) ? "enumerated" : "other";
}

/// What the class system says of a type's values.
std::string possibleValues(const Type& type) {
  const vcos::COSDataType& dataType = type.access.dataType();
  if (dataType.isPossibleValuesFinite())
    return fmt::format("{}", fmt::join(possibleValueTexts(type), ", "));
  if (type.isScalar) return textsOfScalar(type);
  const char* description = dataType.getPossibleValuesDescription();
  return description ? description : "";
}

}  // namespace

TypeWords wordsOf(const Type& type) {
  if (const auto own = ownWords().find(type.name); own != ownWords().end()) return own->second;
  if (auto words = geometryWords(type.name)) return *words;
  if (auto words = stringWords(type.name)) return *words;
  if (const auto* rules = shapedRules(type)) return shapedWords(*rules);
  const std::string values = possibleValues(type);
  return {.family = familyOf(type),
          .inShort = values,
          .values = values.empty() ? std::vector<std::string>() : std::vector{values}};
}

}  // namespace vgdt
