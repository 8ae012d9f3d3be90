#include "ShapedWords.h"

#include "ArrayElements.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>
#include <utility>

namespace vgdt {
namespace {

using graphics::datatype::shaped::ClassSet;
using graphics::datatype::shaped::ElementScan;
using graphics::datatype::shaped::ElementTest;
using graphics::datatype::shaped::Predicate;
using graphics::datatype::shaped::ShapedType;
using graphics::datatype::shaped::SizeRule;
using graphics::datatype::shaped::WholeArrayRule;

constexpr vxClassID kNumericClasses[] = {
    vxDOUBLE_CLASS, vxSINGLE_CLASS, vxINT8_CLASS,   vxUINT8_CLASS, vxINT16_CLASS,
    vxUINT16_CLASS, vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS,
};

std::string measure(std::size_t size, const char* letter) {
  return size == SizeRule::kAny ? letter : std::to_string(size);
}

std::string sizeWords(const SizeRule& rule) {
  switch (rule.kind) {
    case SizeRule::Kind::kPair:
      return "1-by-2 or 2-by-1";
    case SizeRule::Kind::kVector:
      return "1-by-n or n-by-1";
    case SizeRule::Kind::kDimensions:
      break;
  }
  const std::string m = measure(rule.m, rule.n == SizeRule::kAny ? "m" : "n");
  const std::string matrix = fmt::format("{}-by-{}", m, measure(rule.n, "n"));
  return rule.numberOfDimensions == 2 ? matrix : matrix + "-by-" + measure(rule.third, "p");
}

/// "double or single", or "numeric" for all ten.
std::string classWords(ClassSet classes) {
  std::vector<std::string> names;
  for (const vxClassID classID : kNumericClasses)
    if (classes.contains(classID)) names.emplace_back(vxClassName(classID));
  if (names.size() == std::size(kNumericClasses)) names = {"numeric"};
  if (classes.contains(vxLOGICAL_CLASS)) names.emplace_back("logical");
  return fmt::format("{}", fmt::join(names, " or "));
}

std::string ruleWords(WholeArrayRule rule) {
  switch (rule) {
    case WholeArrayRule::kNone:
      break;
    case WholeArrayRule::kNotDecreasing:
      return "the first not above the second, neither NaN, not both infinite";
    case WholeArrayRule::kIncreasing:
      return "the first below the second, both finite";
    case WholeArrayRule::kIncreasingWithInfs:
      return "the first below the second, neither NaN";
    case WholeArrayRule::kNormalized:
      return "0 to 1 or NaN";
    case WholeArrayRule::kTicks:
      return "each below the next, none NaN, no two infinite side by side";
  }
  return "";
}

std::string rangeWords(const ElementScan& scan) {
  if (scan.has(ElementTest::kInt32))
    return fmt::format("whole numbers from {}, in double and single up to {},", scan.min,
                       std::numeric_limits<std::int32_t>::max());
  if (scan.has(ElementTest::kRange))
    return std::isinf(scan.max) ? fmt::format("from {}", scan.min)
                                : fmt::format("{} to {}", scan.min, scan.max);
  return scan.has(ElementTest::kInf) ? "finite" : "not NaN";
}

/// What each element has to be; empty if it may be anything.
std::string elementWords(const Predicate& predicate) {
  if (predicate.scan.isEmpty()) return ruleWords(predicate.rule);
  const std::string range = rangeWords(predicate.scan);
  return predicate.scan.has(ElementTest::kSkipNaN) ? range + " or NaN" : range;
}

/// What is asked beside the size.
std::string otherWords(const Predicate& predicate) {
  std::string words = classWords(predicate.classes);
  if (const std::string elements = elementWords(predicate); !elements.empty())
    words += ", " + elements;
  if (predicate.refusesSparse && predicate.refusesComplex)
    return words + " (not sparse or complex)";
  if (predicate.refusesSparse) return words + " (not sparse)";
  return predicate.refusesComplex ? words + " (not complex)" : words;
}

/// "(2,3)", counted from 1, of an element's place in storage order.
std::string placeOf(std::size_t index, const vxArray* array) {
  std::vector<std::size_t> place;
  for (const std::size_t size : dimensionsOf(array)) {
    place.push_back(index % size + 1);
    index /= size;
  }
  return fmt::format("({})", fmt::join(place, ","));
}

std::string elementText(const vxArray* array, std::size_t index) {
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    const T element = elementsOf<T>(array)[index];
    if constexpr (std::is_floating_point_v<T>)
      if (!std::isfinite(element))
        return std::string(std::isnan(element) ? "NaN" : element < 0 ? "-Inf" : "Inf");
    return fmt::format("{}", +element);
  });
}

/// Only what a predicate looks at: it ends at a sparse or complex array and at a wrong class, and
/// gated scans are left out where the size is wrong.
std::vector<std::string> findFaults(const Predicate& predicate, const vxArray* array) {
  if (predicate.refusesSparse && vxIsSparse(array)) return {"it is sparse"};
  if (predicate.refusesComplex && vxIsComplex(array)) return {"it is complex"};
  std::vector<std::string> faults;
  const bool sizeFits = fitsSize(predicate.size, array);
  const auto dimensions = dimensionsOf(array);
  if (!sizeFits)
    faults.push_back(fmt::format("its size is {}, not {}", fmt::join(dimensions, "-by-"),
                                 sizeWords(predicate.size)));
  if (!predicate.classes.contains(vxGetClassID(array))) {
    faults.push_back(fmt::format("its class is {}, not {}", vxGetClassName(array),
                                 classWords(predicate.classes)));
    return faults;
  }
  // A rule counts the elements as well, so its offender would be one for that alone.
  if (!sizeFits && (predicate.scan.gated || predicate.rule != WholeArrayRule::kNone)) return faults;
  const auto offender = findOffender(predicate, array);
  if (offender && *offender < vxGetNumberOfElements(array))
    faults.push_back(fmt::format("element {}, at {}, is {}; it has to be: {}", *offender + 1,
                                 placeOf(*offender, array), elementText(array, *offender),
                                 elementWords(predicate)));
  return faults;
}

/// An array of the first class that the predicate takes, with that element everywhere. Dimensions
/// that are free are 2.
std::string filledLiteral(const Predicate& predicate, double element) {
  const auto* const classID = std::ranges::find_if(
      kNumericClasses, [&](vxClassID candidate) { return predicate.classes.contains(candidate); });
  const SizeRule& rule = predicate.size;
  const auto some = [](std::size_t size) { return size == SizeRule::kAny ? 2 : size; };
  const std::size_t m = rule.kind == SizeRule::Kind::kDimensions ? some(rule.m) : 1;
  const std::size_t pages = rule.numberOfDimensions == 3 ? some(rule.third) : 1;
  const std::vector<double> row(some(rule.n) * pages, element);
  const std::vector<std::string> rows(m, fmt::format("{}", fmt::join(row, " ")));
  std::string literal = fmt::format("[{}]", fmt::join(rows, ";"));
  if (*classID != vxDOUBLE_CLASS) literal = fmt::format("{}({})", vxClassName(*classID), literal);
  if (pages == 1) return literal;
  return fmt::format("reshape({},{},{},{})", literal, m, some(rule.n), pages);
}

}  // namespace

std::vector<std::string> acceptedWays(const ShapedType& type) {
  std::vector<std::pair<std::string, std::string>> ways;  // sizes, and what else is asked
  for (const Predicate& predicate : type.predicates) {
    const std::string rest = otherWords(predicate);
    const std::string size = sizeWords(predicate.size);
    if (!ways.empty() && ways.back().second == rest)
      ways.back().first += " or " + size;
    else
      ways.emplace_back(size, rest);
  }
  std::vector<std::string> words;
  for (const auto& [sizes, rest] : ways)
    words.push_back(sizes + ' ' + rest);
  if (type.takesEmpty) words.emplace_back("empty, of any class");
  return words;
}

std::vector<std::string> refusals(const ShapedType& type, const vxArray* array) {
  std::vector<std::string> words;
  for (const Predicate& predicate : type.predicates)
    if (const auto faults = findFaults(predicate, array); !faults.empty())
      words.push_back(fmt::format("{}: {}", predicate.name, fmt::join(faults, "; ")));
  return words;
}

std::vector<std::string> sampleLiterals(const ShapedType& type) {
  std::vector<std::string> literals;
  for (const Predicate& predicate : type.predicates) {
    literals.push_back(filledLiteral(predicate, 1));
    const ElementScan& scan = predicate.scan;
    if (scan.has(ElementTest::kRange))
      literals.push_back(
          filledLiteral(predicate, std::isinf(scan.max) ? scan.min - 1 : scan.max + 1));
    if (scan.has(ElementTest::kInt32)) literals.push_back(filledLiteral(predicate, 1.5));
  }
  return literals;
}

}  // namespace vgdt
