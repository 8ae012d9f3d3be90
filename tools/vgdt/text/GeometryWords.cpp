#include "text/GeometryWords.h"

#include "ArrayElements.h"
#include "text/Faults.h"
#include "text/NumberText.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/Points.h>
#include <gui_objects/convert_from_string_utils.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace vgdt {
namespace {

/// What a number has to be.
struct NumberRule {
  bool (*holds)(double number);
  const char* words;
};
constexpr NumberRule kFinite = {[](double number) { return std::isfinite(number); },
                                "a finite number"};
constexpr NumberRule kFromZero = {[](double number) { return number >= 0; },
                                  "a number from 0 upwards"};
constexpr NumberRule kNotNegative = {[](double number) { return !(number < 0); },
                                     "a number from 0 upwards, or NaN"};
constexpr NumberRule kAboveZero = {
    [](double number) { return std::isfinite(number) && number > 0; }, "a finite number above 0"};
constexpr NumberRule kFraction = {[](double number) { return number >= 0 && number <= 1; },
                                  "a number from 0 to 1"};

/// What of the elements is tested.
enum class Tested {
  kElement,
  kInteger,  ///< the element as the 32-bit integer that it becomes
  kExtent,   ///< the second element of a pair less the first
};

/// A test of some of the elements, or of some pairs.
struct Test {
  std::size_t begin;
  std::size_t end;
  NumberRule rule;
  Tested tested = Tested::kElement;
};

/// Which arrays of the right number of elements count. Where an array may have more than two
/// dimensions, those after the first count as one.
enum class Shape {
  kMatrix,  ///< two dimensions
  kFolded,
  kFoldedOrColumn,  ///< also with rows and columns the other way round
  kAny,
};

/// What the conversions of a type test: the class, the shape and the elements, in this order.
struct Rules {
  bool takesIntegersOnly = false;
  Shape shape = Shape::kAny;
  std::size_t rows = 1;
  std::size_t columns = 1;
  std::vector<const char*> names = {};  ///< of the elements, or of the pairs
  std::vector<Test> ofArrays = {};
  std::vector<Test> ofTexts = {};
};

/// A number that is tested, and what a user is told of it.
struct Quantity {
  double number;
  std::string words;
};

template <class T>
std::int32_t asInteger(T element) {
  if constexpr (std::is_integral_v<T>)
    return static_cast<std::int32_t>(element);
  else
    return gui_objects::Point2d{element, 0}.asPoint2i().x;
}

template <class T>
Quantity quantityOf(std::span<const T> elements, std::size_t index, Tested tested) {
  if (tested == Tested::kExtent) {
    const T minimum = elements[2 * index];
    const T maximum = elements[2 * index + 1];
    const double extent = static_cast<double>(maximum) - static_cast<double>(minimum);
    return {extent, fmt::format("{}, from {} to {}", numberText(extent), numberText(minimum),
                                numberText(maximum))};
  }
  const auto element = static_cast<double>(elements[index]);
  const std::string words = numberText(elements[index]);
  if (tested == Tested::kElement) return {element, words};
  const std::int32_t integer = asInteger(elements[index]);
  if (integer == element) return {element, words};
  return {static_cast<double>(integer),
          fmt::format("{}, as a 32-bit integer {}", words, numberText(integer))};
}

/// "width is -1; it is a number from 0 upwards", of the first number that does not fit.
template <class T>
std::vector<std::string> elementFaults(std::span<const T> elements, const Rules& rules,
                                       const std::vector<Test>& tests) {
  for (const Test& test : tests)
    for (std::size_t i = test.begin; i < test.end; ++i)
      if (const auto [number, words] = quantityOf(elements, i, test.tested);
          !test.rule.holds(number))
        return {fmt::format("{} is {}; it is {}", rules.names[i], words, test.rule.words)};
  return {};
}

bool fitsSize(const vxArray* array, const Rules& rules) {
  const std::size_t rows = vxGetM(array);
  const std::size_t columns = vxGetN(array);
  if (rules.shape == Shape::kMatrix && vxGetNumberOfDimensions(array) != 2) return false;
  return (rows == rules.rows && columns == rules.columns) ||
         (rules.shape == Shape::kFoldedOrColumn && rows == rules.columns && columns == rules.rows);
}

std::optional<std::string> shapeFault(const vxArray* array, const Rules& rules) {
  const std::size_t count = rules.rows * rules.columns;
  if (rules.shape == Shape::kAny) return countFault(array, count, count);
  if (fitsSize(array, rules)) return std::nullopt;
  std::string wanted = fmt::format("{}-by-{}", rules.rows, rules.columns);
  if (rules.shape == Shape::kFoldedOrColumn)
    wanted += fmt::format(" or {}-by-{}", rules.columns, rules.rows);
  return sizeFault(dimensionsOf(array), wanted);
}

std::vector<std::string> arrayFaults(const vxArray* array, const Rules& rules) {
  std::vector<std::string> faults;
  const bool isFloating =
      vxGetClassID(array) == vxDOUBLE_CLASS || vxGetClassID(array) == vxSINGLE_CLASS;
  if (!vxIsNumeric(array) || (rules.takesIntegersOnly && isFloating))
    faults.push_back(classFault(array, rules.takesIntegersOnly ? "an integer class" : "numeric"));
  if (const auto fault = shapeFault(array, rules)) faults.push_back(*fault);
  if (!faults.empty()) return faults;
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    return elementFaults(elementsOf<T>(array), rules, rules.ofArrays);
  });
}

std::vector<std::string> textFaults(const std::string& text, const Rules& rules) {
  if (trimmed(text).empty()) return {kEmptyText};
  // A single number may stand without brackets.
  const bool isBare = rules.rows * rules.columns == 1 && !trimmed(text).starts_with('[');
  const std::string numbers = isBare ? '[' + text + ']' : text;
  const auto size = sizeOfNumbers(numbers);
  if (!size && isBare) return {"it is no number"};
  if (!size) return {bracketsFault(text).value_or("it is no list of numbers in brackets")};
  if (*size != std::array{rules.rows, rules.columns})
    return {sizeFault(*size, fmt::format("{}-by-{}", rules.rows, rules.columns))};
  const vcos::ArrayOwner array(gui_objects::convert_from_string_utils::parse_mxn(
      rules.rows, rules.columns, vxDOUBLE_CLASS, numbers.c_str()));
  return elementFaults(elementsOf<double>(array.get()), rules, rules.ofTexts);
}

struct Row {
  TypeWords words;
  Rules rules;
};

const std::unordered_map<std::string, Row>& rowsByType() {
  static const std::unordered_map<std::string, Row> rows = {
      {"BoundingVolume",
       {{.family = "geometry",
         .inShort = "2-by-3: minimum and maximum of x, y and z",
         .values = {"2-by-3 numeric: columns for x, y and z, the minimum in the first row, the "
                    "maximum in the second",
                    "no maximum below its minimum, no NaN, no two equal infinities in a column"},
         .texts = {"2 rows of 3 numbers in brackets, such as [0 0 0; 1 1 1]; a text that is none "
                   "becomes [0 0 0; 0 0 0]"},
         .samples = {"[0 0 0; 1 2 3]", "int8([-1 -1 -1; -1 -1 -1])", "[-1 0 0; Inf 1 1]",
                     "[1 0 0; 0 1 1]", "[0 1; 0 1; 0 1]", "'text'"}},
        {.shape = Shape::kFolded,
         .rows = 2,
         .columns = 3,
         .names = {"the width along x", "the width along y", "the width along z"},
         .ofArrays = {{0, 3, kFromZero, Tested::kExtent}},
         .ofTexts = {{0, 3, kFromZero, Tested::kExtent}}}}},
      {"Inset",
       {{.family = "geometry",
         .inShort = "1-by-4: margins left, bottom, right, top, none negative",
         .values =
             {"1-by-4 numeric, none negative: the margins left, bottom, right and top, in the "
              "units of the owner's property Units"},
         .texts = {"4 numbers in brackets, such as [1 2 3 4]; a text that is none becomes "
                   "[0 0 0 0]"},
         .samples = {"[1 2 3 4]", "uint8([5 5 5 5])", "[0 NaN Inf 0.5]", "[0 -1 0 0]",
                     "[1; 2; 3; 4]", "'text'"}},
        {.shape = Shape::kFolded,
         .columns = 4,
         .names = {"left", "bottom", "right", "top"},
         .ofArrays = {{0, 4, kNotNegative}},
         .ofTexts = {{0, 4, kNotNegative}}}}},
      {"LightingStrength",
       {{.family = "ranged",
         .inShort = "a number from 0 to 1",
         .values = {"1 element of a numeric class, from 0 to 1"},
         .texts = {"a number from 0 to 1, with or without brackets"},
         .samples = {"0", "single(0.25)", "uint8(1)", "1.5", "true", "[0 1]"}},
        {.names = {"the number"},
         .ofArrays = {{0, 1, kFraction}},
         .ofTexts = {{0, 1, kFraction}}}}},
      {"Matrix4x4",
       {{.family = "geometry",
         .inShort = "4-by-4: a transformation",
         .values = {"4-by-4 numeric: a transformation of space"},
         .texts = {"4 rows of 4 numbers in brackets, such as "
                   "[1 0 0 0; 0 1 0 0; 0 0 1 0; 0 0 0 1]"},
         .samples = {"[2 0 0 5; 0 2 0 6; 0 0 2 7; 0 0 0 1]", "ones(4,4,'int8')", "NaN", "zeros(4)",
                     "ones(3)", "'text'", "1:16"}},
        {.shape = Shape::kMatrix, .rows = 4, .columns = 4}}},
      {"Point2",
       {{.family = "geometry",
         .inShort = "2 elements: x and y, made whole",
         .values = {"2 elements of a numeric class: x and y",
                    "fractions are cut off, and integers keep their low 32 bits; what is no 32-bit "
                    "integer, also NaN, becomes -2147483648"},
         .texts = {"2 numbers in brackets, such as [1 2]; fractions are cut off"},
         .samples = {"[1.9 -1.9]", "[NaN 3e9]", "uint32([4294967295 7])", "[1 2 3]", "'ab'", "{}"}},
        {.columns = 2, .names = {"x", "y"}}}},
      {"Point2d",
       {{.family = "geometry",
         .inShort = "2 elements, finite: x and y",
         .values = {"2 elements of a numeric class, finite: x and y"},
         .texts = {"2 numbers in brackets, such as [0.5 1], also NaN, Inf and -Inf"},
         .samples = {"[0.5 -1]", "int8([1; 2])", "reshape(1:2,1,1,2)", "[Inf 0]", "[1 2 3]",
                     "'ab'"}},
        {.columns = 2, .names = {"x", "y"}, .ofArrays = {{0, 2, kFinite}}}}},
      {"Point3",
       {{.family = "geometry",
         .inShort = "3 elements, finite: x, y and z",
         .values = {"3 elements of a numeric class, finite: x, y and z"},
         .texts = {"3 numbers in brackets, such as [0.5 1 2], also NaN, Inf and -Inf"},
         .samples = {"[1 2.5 -3]", "int32([-1; 0; 1])", "[NaN 1 1]", "[1 2]", "'abc'"}},
        {.columns = 3, .names = {"x", "y", "z"}, .ofArrays = {{0, 3, kFinite}}}}},
      {"Position",
       {{.family = "geometry",
         .inShort = "4 elements, finite: x, y, width, height, the sizes from 0",
         .values = {"1-by-4 or 4-by-1 numeric, finite: x, y, width and height, in the units of the "
                    "owner's property Units",
                    "width and height from 0 upwards"},
         .texts = {"4 numbers in brackets, such as [10 20 640 480], also NaN, Inf and, but for the "
                   "sizes, -Inf; a text that is none becomes [0 0 0 0]"},
         .samples = {"[10 20 640 480]", "int32([1; 2; 3; 4])", "[0.1 -2 0 0]", "[0 0 -1 1]",
                     "[NaN 0 1 1]", "[1 2 3]", "'text'"}},
        {.shape = Shape::kFoldedOrColumn,
         .columns = 4,
         .names = {"x", "y", "width", "height"},
         .ofArrays = {{2, 4, kFromZero}, {0, 4, kFinite}},
         .ofTexts = {{2, 4, kNotNegative}}}}},
      {"Positive",
       {{.family = "ranged",
         .inShort = "a finite number above 0",
         .values = {"1 element of a numeric class, finite and above 0"},
         .texts = {"a finite number above 0, with or without brackets"},
         .samples = {"0.5", "int8(3)", "5e-324", "0", "Inf", "true", "[1 2]"}},
        {.names = {"the number"},
         .ofArrays = {{0, 1, kAboveZero}},
         .ofTexts = {{0, 1, kAboveZero}}}}},
      {"PositivePoint3",
       {{.family = "geometry",
         .inShort = "3 elements, finite and above 0: x, y and z",
         .values = {"3 elements of a numeric class, finite and above 0: x, y and z"},
         .texts = {"3 numbers in brackets, such as [0.5 1 2], also negative ones, NaN, "
                   "Inf and -Inf; a text that is none becomes null"},
         .samples = {"[1 2 0.5]", "uint8([3; 2; 1])", "[1 1 0]", "int32([-1 0 1])", "[1 2]",
                     "'abc'"}},
        {.columns = 3, .names = {"x", "y", "z"}, .ofArrays = {{0, 3, kAboveZero}}}}},
      {"Rectangle2",
       {{.family = "geometry",
         .inShort = "1-by-4: x, y, width, height, made whole; read as corners",
         .values = {"1-by-4 numeric: x, y, width and height, which reads back as x and y of two "
                    "corners",
                    "fractions are cut off, and integers keep their low 32 bits; what is no 32-bit "
                    "integer, also NaN, becomes -2147483648",
                    "width and height are then from 0 upwards"},
         .texts = {"4 numbers in brackets, such as [1 2 3 4], with the same rules"},
         .samples = {"[1 2 3 4]", "[1.9 -1.9 0.5 3.5]", "int64([0 0 1 1])", "[0 0 -1 1]",
                     "[1; 2; 3; 4]", "'text'"}},
        {.shape = Shape::kFolded,
         .columns = 4,
         .names = {"x", "y", "width", "height"},
         .ofArrays = {{2, 4, kFromZero, Tested::kInteger}},
         .ofTexts = {{2, 4, kFromZero, Tested::kInteger}}}}},
      {"ScreenPosition",
       {{.family = "geometry",
         .inShort = "4 integers: x, y, width, height in pixels, the sizes from 0",
         .values = {"1-by-4 or 4-by-1 of an integer class: x, y, width and height, in pixels",
                    "width and height from 0 upwards, also as 32-bit integers: of larger numbers "
                    "the low 32 bits count"},
         .texts = {"4 numbers in brackets, such as [10 20 640 480]; fractions are cut off; a text "
                   "that is none becomes [0 0 0 0]"},
         .samples = {"int32([10 20 640 480])", "uint8([1; 2; 3; 4])", "uint32([4294967295 0 1 1])",
                     "[10 20 640 480]", "int32([0 0 -1 1])", "int32([1 2 3])"}},
        {.takesIntegersOnly = true,
         .shape = Shape::kFoldedOrColumn,
         .columns = 4,
         .names = {"x", "y", "width", "height"},
         .ofArrays = {{2, 4, kFromZero}, {2, 4, kFromZero, Tested::kInteger}},
         .ofTexts = {{2, 4, kFromZero, Tested::kInteger}}}}},
  };
  return rows;
}

Explanation explain(const Refusal& refusal) {
  const Rules& rules = rowsByType().at(refusal.type.name).rules;
  if (refusal.given.route == GivenValue::Route::Text)
    return {.faults = textFaults(refusal.given.content, rules)};
  if (!refusal.array) return {};
  return {.faults = arrayFaults(refusal.array, rules)};
}

}  // namespace

std::optional<TypeWords> geometryWords(const std::string& typeName) {
  const auto row = rowsByType().find(typeName);
  if (row == rowsByType().end()) return std::nullopt;
  TypeWords words = row->second.words;
  words.explain = explain;
  return words;
}

}  // namespace vgdt
