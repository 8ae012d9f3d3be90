// What is found wrong with an array by a predicate, also by one that no type has.

#include "support/Arrays.h"

#include <graphics/datatype/shaped_types.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace graphics::datatype;
using shaped::ElementTest;
using shaped::Failure;
using shaped::Finding;
using shaped::Predicate;
using Element = std::optional<std::size_t>;
using test::array;

const Predicate& predicateOf(const char* type, std::size_t index = 0) {
  return shaped::findShapedType(type)->predicates[index];
}

TEST(Findings, TellTheFirstElementThatFailsAndTheOneThatDecides) {
  struct Row {
    const char* type;
    const char* words;
    test::Numbers elements;
    Failure failure;
    bool fitsSize = true;
    bool fitsClass = true;
    Element first{};
    Element deciding{};
  };
  const Row kRows[] = {
      {"ColorMap", "1x3 double", {0, 1, NAN}, Failure::kNone},
      {"ColorMap", "complex 4x2 single", {7}, Failure::kComplex},
      {"ColorMap", "1x2 int8", {7}, Failure::kType, false, false},
      {"ColorMap", "1x3 double", {0, 2, -1}, Failure::kRange, true, true, 1, 1},
      {"ColorMap", "1x4 double", {0, 2, INFINITY, 2}, Failure::kInf, false, true, 1, 2},
      {"AxesView", "1x3 double", {NAN}, Failure::kSize, false},
      {"PatchFaces", "1x4 double", {1, 0, 1.5, 0}, Failure::kType, true, true, 1, 2},
      {"ImageXYData", "2x2 logical", {1}, Failure::kSize, false},
      {"Limits", "1x3 double", {3, 2, 1}, Failure::kPredicate, false},
      {"Limits", "1x2 uint8", {3, 2}, Failure::kPredicate, true, true, 1, 1},
      {"Tick", "2x2 double", {1, 2, 0, 4}, Failure::kPredicate, false, true, 2, 2},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.words);
    const Finding found =
        shaped::examine(predicateOf(row.type), array(row.words, row.elements).get());
    EXPECT_EQ(found.failure, row.failure);
    EXPECT_EQ(found.fitsSize, row.fitsSize);
    EXPECT_EQ(found.fitsClass, row.fitsClass);
    EXPECT_EQ(found.firstElement, row.first);
    EXPECT_EQ(found.decidingElement, row.deciding);
  }
  EXPECT_EQ(shaped::examine(predicateOf("Tick"), nullptr).failure, Failure::kSize);
}

TEST(Findings, AreRightForRangesThatNoTypeHas) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kBounds[] = {-kInfinity, -2, -1.5, -1, -0.5, -0.0, 0, 0.1, 0.5, 1, 1.5, 2, 5};
  constexpr ElementTest kTests[] = {ElementTest::kEnd, ElementTest::kNotNaN, ElementTest::kSkipNaN,
                                    ElementTest::kWhole32, ElementTest::kNotInf};
  std::mt19937 random{5};
  const auto any = [&random](const auto& list) { return list[random() % std::size(list)]; };
  for (const char* classAndSize :
       {"1x300 double", "1x300 single", "1x300 int8", "1x300 uint8", "1x300 int32", "1x300 uint64"})
    for (int round = 0; round < 200; ++round) {
      Predicate predicate = predicateOf("NumericMatrix");
      predicate.scan = {.tests = {any(kTests), ElementTest::kRange, any(kTests)},
                        .min = any(kBounds),
                        .max = any(kBounds)};
      if (predicate.scan.tests[0] == ElementTest::kEnd)
        predicate.scan.tests[0] = ElementTest::kRange;
      const double usual = random() % 2 ? 1 : any(kBounds);
      test::Numbers numbers(300, std::isinf(usual) ? 1 : usual);
      numbers[random() % 300] = any(kBounds);
      const test::ArrayOwner given = array(classAndSize, numbers);
      numbers = test::numbersOf(given.get());
      Element first;
      for (std::size_t i = 0; i < 300 && !first; ++i) {
        const double x = numbers[i];
        const bool isWhole = x == std::trunc(x) && !std::isinf(x);
        const bool isFloat = vxGetClassID(given.get()) <= vxSINGLE_CLASS;
        bool fails = x < predicate.scan.min || x > predicate.scan.max;
        if (predicate.scan.has(ElementTest::kNotInf)) fails |= std::isinf(x);
        if (predicate.scan.has(ElementTest::kWhole32)) fails |= isFloat && !isWhole;
        if (fails) first = i;
      }
      ASSERT_EQ(shaped::examine(predicate, given.get()).firstElement, first)
          << classAndSize << ", " << predicate.scan.min << " to " << predicate.scan.max;
    }
}

}  // namespace
