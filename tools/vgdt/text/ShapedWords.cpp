#include "text/ShapedWords.h"

#include "ArrayElements.h"
#include "text/Faults.h"
#include "text/NumberText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gui_objects/convert_from_string_utils.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace vgdt {
namespace {

using graphics::datatype::shaped::ClassSet;
using graphics::datatype::shaped::ElementScan;
using graphics::datatype::shaped::ElementTest;
using graphics::datatype::shaped::Failure;
using graphics::datatype::shaped::Finding;
using graphics::datatype::shaped::Predicate;
using graphics::datatype::shaped::ShapedType;
using graphics::datatype::shaped::SizeRule;
using graphics::datatype::shaped::Stored;
using graphics::datatype::shaped::WholeArrayRule;

/// In ascending order.
std::vector<vxClassID> numericClassesIn(ClassSet classes) {
  std::vector<vxClassID> found;
  std::ranges::copy_if(vg::kNumericClasses, std::back_inserter(found),
                       [classes](vxClassID classID) { return classes.contains(classID); });
  return found;
}

std::string measure(std::size_t size, const char* letter) {
  return size == SizeRule::kAny ? letter : std::to_string(size);
}

std::string sizeWords(const SizeRule& rule) {
  switch (rule.kind) {
    case SizeRule::Kind::kPair:
      return "1-by-2, 2-by-1 or 1-by-1-by-2";
    case SizeRule::Kind::kVector:
      return "1-by-n or n-by-1";
    case SizeRule::Kind::kDimensions:
      break;
  }
  const std::string m = measure(rule.m, rule.n == SizeRule::kAny ? "m" : "n");
  const std::string matrix = fmt::format("{}-by-{}", m, measure(rule.n, "n"));
  return rule.numberOfDimensions == 2 ? matrix : matrix + "-by-" + measure(rule.third, "k");
}

/// "double or single", or "numeric" for all ten.
std::string classWords(ClassSet classes) {
  std::vector<std::string> names;
  for (const vxClassID classID : numericClassesIn(classes))
    names.emplace_back(vxClassName(classID));
  if (names.size() == std::size(vg::kNumericClasses)) names = {"numeric"};
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
      return "each below the next, none NaN, no two infinite side by side; one alone may be any";
  }
  return "";
}

std::string rangeWords(const ElementScan& scan) {
  if (scan.has(ElementTest::kWhole32))
    return fmt::format("whole numbers from {}, in double and single up to {},", scan.min,
                       std::numeric_limits<std::int32_t>::max());
  if (scan.has(ElementTest::kRange))
    return std::isinf(scan.max) ? fmt::format("from {}", scan.min)
                                : fmt::format("{} to {}", scan.min, scan.max);
  return scan.has(ElementTest::kNotInf) ? "finite" : "not NaN";
}

/// What each element has to be; empty if it may be anything.
std::string elementWords(const Predicate& predicate) {
  if (predicate.scan.isEmpty()) return ruleWords(predicate.rule);
  const std::string range = rangeWords(predicate.scan);
  return predicate.scan.has(ElementTest::kSkipNaN) ? range + " or NaN" : range;
}

/// What is asked of the class and the elements.
std::string contentWords(const Predicate& predicate) {
  const std::string elements = elementWords(predicate);
  return classWords(predicate.classes) + (elements.empty() ? "" : ", " + elements);
}

std::string formWords(const Predicate& predicate) {
  if (predicate.refusesSparse && predicate.refusesComplex) return " (not sparse or complex)";
  if (predicate.refusesSparse) return " (not sparse)";
  return predicate.refusesComplex ? " (not complex)" : "";
}

/// A line for each run of predicates that differ only in size.
template <class Words>
std::vector<std::string> waysOf(const ShapedType& type, Words words) {
  std::vector<std::pair<std::string, std::string>> ways;  // sizes, and what else is asked
  for (const Predicate& predicate : type.predicates) {
    const std::string size = sizeWords(predicate.size);
    const std::string rest = words(predicate);
    if (!ways.empty() && ways.back().second == rest)
      ways.back().first += " or " + size;
    else
      ways.emplace_back(size, rest);
  }
  std::vector<std::string> lines;
  std::ranges::transform(ways, std::back_inserter(lines),
                         [](const auto& way) { return way.first + ' ' + way.second; });
  return lines;
}

std::string elementText(const vxArray* array, std::size_t index) {
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    return numberText(elementsOf<T>(array)[index]);
  });
}

/// "element 3, at (1,2), is 2".
std::string elementFault(const vxArray* array, std::size_t index) {
  return fmt::format("element {}, at {}, is {}", index + 1, placeOf(index, array),
                     elementText(array, index));
}

/// The first element that does not fit, and the one that decided the message if that is another.
std::string elementFaults(const Predicate& predicate, const vxArray* array,
                          const Finding& finding) {
  std::string words = elementFault(array, *finding.firstElement);
  if (finding.decidingElement && finding.decidingElement != finding.firstElement)
    words += ", and " + elementFault(array, *finding.decidingElement);
  return words + "; asked for: " + elementWords(predicate);
}

std::vector<std::string> findFaults(const Predicate& predicate, const vxArray* array) {
  const Finding finding = examine(predicate, array);
  if (finding.failure == Failure::kSparse) return {"it is sparse"};
  if (finding.failure == Failure::kComplex) return {"it is complex"};
  std::vector<std::string> faults;
  if (!finding.fitsSize)
    faults.push_back(sizeFault(dimensionsOf(array), sizeWords(predicate.size)));
  if (!finding.fitsClass) faults.push_back(classFault(array, classWords(predicate.classes)));
  if (finding.firstElement) faults.push_back(elementFaults(predicate, array, finding));
  return faults;
}

/// An array of the first class that the predicate takes, with that element everywhere. Dimensions
/// that are free are 2.
std::string filledLiteral(const Predicate& predicate, double element) {
  const vxClassID classID = numericClassesIn(predicate.classes).front();
  const SizeRule& rule = predicate.size;
  const auto some = [](std::size_t size) { return size == SizeRule::kAny ? 2 : size; };
  const std::size_t m = rule.kind == SizeRule::Kind::kDimensions ? some(rule.m) : 1;
  const std::size_t pages = rule.numberOfDimensions == 3 ? some(rule.third) : 1;
  const std::vector<double> row(some(rule.n) * pages, element);
  const std::vector<std::string> rows(m, fmt::format("{}", fmt::join(row, " ")));
  std::string literal = fmt::format("[{}]", fmt::join(rows, ";"));
  if (classID != vxDOUBLE_CLASS) literal = fmt::format("{}({})", vxClassName(classID), literal);
  if (pages == 1) return literal;
  return fmt::format("reshape({},{},{},{})", literal, m, some(rule.n), pages);
}

/// Each way in which an array can be a value, such as "n-by-3 double or single, 0 to 1 or NaN (not
/// complex)". Neighbours that differ only in size are told together.
std::vector<std::string> acceptedWays(const ShapedType& type) {
  std::vector<std::string> ways = waysOf(type, [](const Predicate& predicate) {
    return contentWords(predicate) + formWords(predicate);
  });
  if (type.takesEmpty) ways.emplace_back("empty, of any class");
  if (type.stored == Stored::kAsRow) ways.emplace_back("a column becomes a row");
  return ways;
}

/// Literals that the predicates may take, and some that they may not.
std::vector<std::string> sampleLiterals(const ShapedType& type) {
  std::vector<std::string> literals;
  for (const Predicate& predicate : type.predicates) {
    literals.push_back(filledLiteral(predicate, 1));
    const ElementScan& scan = predicate.scan;
    if (scan.has(ElementTest::kRange))
      literals.push_back(
          filledLiteral(predicate, std::isinf(scan.max) ? scan.min - 1 : scan.max + 1));
    if (scan.has(ElementTest::kWhole32)) literals.push_back(filledLiteral(predicate, 1.5));
  }
  return literals;
}

/// For each predicate that does not hold, why, such as "isNormalizedColorMap: element 3, at (1,2),
/// is 2; asked for: 0 to 1 or NaN".
std::vector<std::string> refusals(const ShapedType& type, const vxArray* array) {
  std::vector<std::string> words;
  for (const Predicate& predicate : type.predicates)
    if (const auto faults = findFaults(predicate, array); !faults.empty())
      words.push_back(fmt::format("{}: {}", predicate.name, fmt::join(faults, "; ")));
  return words;
}

/// The array that the type has read from a text.
vcos::ArrayOwner arrayOfText(const ShapedType& rules, const std::string& content) {
  namespace convert = gui_objects::convert_from_string_utils;
  const char* const text = content.c_str();
  const auto [rows, columns] = convert::parse_array_dimensions(text);
  return vcos::ArrayOwner(convert::parse_mxn(rows, columns, rules.storageClass, text));
}

Explanation explainShape(const Refusal& refusal) {
  if (!refusal.failure.identifier.starts_with("VORTIL:vg:shaped_arrays:")) return {};
  const ShapedType& rules = *shapedRules(refusal.type);
  if (refusal.array) return {.faults = refusals(rules, refusal.array)};
  const vcos::ArrayOwner ofText = arrayOfText(rules, refusal.given.content);
  return {.faults = refusals(rules, ofText.get())};
}

}  // namespace

TypeWords shapedWords(const ShapedType& type) {
  return {
      .family = "shaped",
      .inShort = fmt::format("{}", fmt::join(waysOf(type, contentWords), "; ")),
      .values = acceptedWays(type),
      .texts = {fmt::format("numbers in brackets, separated by blanks or commas, rows by \";\", "
                            "read as {}; [] is empty",
                            vxClassName(type.storageClass))},
      .samples = sampleLiterals(type),
      .explain = explainShape};
}

}  // namespace vgdt
