// Each test of each type: the forms, sizes and classes that it takes, and what it asks of elements.

#include "shaped_arrays/PlainScan.h"
#include "shaped_arrays/Verdicts.h"
#include "support/Arrays.h"

#include <graphics/datatype/shaped_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

using namespace graphics::datatype;
using namespace test;
using enum shaped::WholeArrayRule;

using Test = bool (*)(const vxArray*, MessagePtr&);

/// What a test says of an array: its message, or "" if it holds.
std::string seenBy(Test holds, const ArrayOwner& array) {
  const auto [held, message] =
      verdictOf([&](MessagePtr& left) { return holds(array.get(), left); });
  EXPECT_EQ(held, message.empty());
  return message;
}

struct Row {
  std::string type;
  std::string_view name;
  Test holds;
  std::string_view form;  ///< S: refuses sparse arrays, C: complex ones
  const char* taken;      ///< sizes
  const char* refused;    ///< sizes
  const char* classes;
  ElementScan scan{};
  shaped::WholeArrayRule rule = kNone;

  bool refuses(char letter) const { return form.find(letter) != form.npos; }
  const shaped::Predicate& predicate() const {
    return *std::ranges::find(shaped::findShapedType(type)->predicates, name,
                              &shaped::Predicate::name);
  }
};

#define TEST_OF(Type, Name) #Type, #Name, &Type::Name

constexpr const char* kFloat = "double single";
constexpr const char* kNumeric = "double single int8 uint8 int16 uint16 int32 uint32 int64 uint64";
constexpr const char* kNumOrLog =
    "double single int8 uint8 int16 uint16 int32 uint32 int64 uint64 logical";

// clang-format off
const Row kRows[] = {
    {TEST_OF(AlphaMap, isRowAlphaMap),                     "C",  "1x3 1x1 1x0",       "2x1 2x2 1x1x3",         kNumOrLog},
    {TEST_OF(AlphaMap, isColumnAlphaMap),                  "C",  "3x1 1x1 0x1",       "1x2 2x2 3x1x1",         kNumOrLog},
    {TEST_OF(AxesView, isHorizontalView),                  "SC", "1x2",               "1x1 1x3 2x2 1x2x1",     "double", kFiniteGated},
    {TEST_OF(AxesView, isVerticalView),                    "SC", "2x1",               "1x1 3x1 2x2 2x1x1",     "double", kFiniteGated},
    {TEST_OF(ColorMap, isNormalizedColorMap),              "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1 2x1x3",   kFloat, kColorMap},
    {TEST_OF(ColorMap, isUINT8ColorMap),                   "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1",         "uint8"},
    {TEST_OF(ColorOrder, isColorOrder),                    "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1 0x0",     kFloat, kColorOrder},
    {TEST_OF(CompositeColorData, isTruecolor),             "C",  "4x5x3 0x2x3",       "4x5x2 4x3 4x5x3x1",     kNumOrLog},
    {TEST_OF(CompositeColorData, isColormapped),           "C",  "4x5 1x1 0x0",       "4x5x3 4x5x1",           kNumOrLog},
    {TEST_OF(Curvature, isOneValue),                       "SC", "1x1",               "1x2 2x1 1x1x1 0x0",     "double", kCurvature},
    {TEST_OF(Curvature, isTwoValues),                      "SC", "1x2",               "1x1 1x3 2x2 1x2x1",     "double", kCurvature},
    {TEST_OF(DataBounds, isTwoValuesIncreasing),           "SC", "1x2",               "2x1 1x1x2 1x1 1x3 0x0", kFloat, {}, kNotDecreasing},
    {TEST_OF(ImageXYData, isRowVector),                    "",   "1x4 1x1 1x0",       "2x1 2x2 1x4x1",         kNumOrLog, kFinite},
    {TEST_OF(ImageXYData, isColumnVector),                 "",   "4x1 1x1 0x1",       "1x2 2x2 4x1x1",         kNumOrLog, kFinite},
    {TEST_OF(ImageXYData, isScalarValue),                  "",   "1x1",               "1x2 2x1 1x1x1 0x0",     kNumOrLog, kFinite},
    {TEST_OF(Limits, isTwoValuesIncreasing),               "SC", "1x2 2x1 1x1x2 2x1x1", "1x1 1x3 2x2 0x0", kNumeric, {}, kIncreasing},
    {TEST_OF(LimitsWithInfs, isTwoValuesIncreasing),       "SC", "1x2 2x1 1x1x2 2x1x1", "1x1 3x1 2x2 0x0", kNumeric, {}, kIncreasingWithInfs},
    {TEST_OF(NColorPtr, isTwoColor),                       "SC", "2x3",               "1x3 3x3 2x2 2x3x1",     kFloat},
    {TEST_OF(NColorPtr, isNColor),                         "SC", "3x3 2x3 1x3 0x3",   "3x2 2x3x1 2x2", kFloat, {}, kNormalized},
    {TEST_OF(TextPosition, isTextPositionRow2),            "S",  "1x2",               "1x3 2x2 2x1 1x2x1",     kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionRow3),            "S",  "1x3",               "1x2 3x3 1x3x1",         kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionColumn2),         "S",  "2x1",               "3x1 2x2 1x2 2x1x1",     kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionColumn3),         "S",  "3x1",               "2x1 3x3 3x1x1",         kNumOrLog},
    {TEST_OF(Tick, isHorizontalVector),                    "SC", "1x5 1x1 1x0",       "2x1 2x2 1x2x1", kFloat, {}, kTicks},
    {TEST_OF(Tick, isVerticalVector),                      "SC", "5x1 1x1 0x1",       "1x2 2x2 2x1x1", kFloat, {}, kTicks},
    {TEST_OF(TickLength, isTwoValues),                     "SC", "1x2 2x1 1x1x2",     "1x1 1x3 2x2 0x2 4x1",   kNumeric, kFinite},
    {TEST_OF(Numeric2D3DMatrix, isNumeric2DMatrix),        "SC", "2x3 1x1 0x0",       "2x3x1 2x3x4",           kNumeric},
    {TEST_OF(Numeric2D3DMatrix, isNumeric3DMatrix),        "SC", "2x3x4 2x3x1 0x1x1", "2x3 2x3x4x1",           kNumeric},
    {TEST_OF(NumericMatrix, isNumeric2DMatrix),            "C",  "2x3 1x1 0x0",       "2x3x1",                 kNumeric},
    {TEST_OF(NumericOrLogicalMatrix, isNumeric2DMatrixOrLogical), "C", "2x3 1x1 0x0", "2x3x1",                 kNumOrLog},
    {TEST_OF(PatchFaces, isPatchFaces),                    "SC", "2x3 1x1 0x0",       "2x3x1",                 kNumeric, kFaces},
    {TEST_OF(PatchFaceVertexAlphaData, isFaceVertexAlphaData), "SC", "3x1 1x1 0x1",   "1x2 3x2 3x1x1",         kNumeric},
    {TEST_OF(PatchFaceVertexCData, isFaceVertexCData1Col), "SC", "3x1 1x1 0x1",       "1x2 3x3 3x1x1",         kNumeric},
    {TEST_OF(PatchFaceVertexCData, isFaceVertexCData3Col), "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchNormals, isNormals),                     "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchVertices, isVertices3),                  "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchVertices, isVertices2),                  "SC", "3x2 0x2",           "2x3 2x1 3x2x1",         kNumeric},
    {TEST_OF(PrimitiveColorData, isTruecolor),             "SC", "4x3 4x0",           "3x4 1x4 4x3x1",         "uint8"},
    {TEST_OF(PrimitiveColorData, isColormapped),           "SC", "1x5 1x0",           "2x5 5x1 1x5x1",         "single", kFiniteGated},
    {TEST_OF(PrimitiveColorData, isTexturemapped2d),       "SC", "2x5 2x0",           "1x5 5x2 2x5x1",         "single", kFiniteGated},
    {TEST_OF(PrimitiveNormalsData, isNormalsData),         "SC", "3x2 3x0",           "2x3 3x2x1",             "single", kNormals},
    {TEST_OF(PrimitiveRGBAData, isTruecolor),              "SC", "4x3 4x0",           "3x4 4x3x1",             "uint8"},
    {TEST_OF(PrimitiveStripData, isStripData),             "SC", "1x3 1x0",           "3x1 2x2 1x3x1",         "uint32", kIndices},
    {TEST_OF(PrimitiveVertexData, isVertexData),           "SC", "3x2 3x3 3x0",       "2x3 3x2x1",             "single", kFiniteGated},
    {TEST_OF(PrimitiveVertexIndices, isPrimitiveIndices),  "SC", "1x3 1x0",           "3x1 2x2 1x3x1",         "uint32", kIndices},
    {TEST_OF(SurfaceCData, isCData2),                      "C",  "2x3 1x1 0x0",       "2x3x3 2x3x1",           kNumeric},
    {TEST_OF(SurfaceCData, isCData3),                      "C",  "2x4x3 0x1x3",       "2x4x2 2x3 2x4x3x1",     kNumeric},
    {TEST_OF(SurfaceVertexNormals, isVertexNormals),       "SC", "2x4x3 0x1x3",       "2x4x2 2x3 2x4x3x1 0x0", kFloat},
    {TEST_OF(SurfaceXYData, isVectorData),                 "C",  "3x1 0x1",           "1x2 3x2 3x1x1",         kNumeric},
    {TEST_OF(SurfaceXYData, isVerticalVectorData),         "C",  "1x3 1x0",           "2x1 2x3 1x3x1",         kNumeric},
    {TEST_OF(SurfaceXYData, isMatrixData),                 "C",  "2x3 1x1 0x0",       "2x3x1",                 kNumeric},
    {TEST_OF(TextureColorData, isTextureColorData2),       "SC", "4x3 4x0",           "3x4 4x3x1",             "uint8"},
    {TEST_OF(TextureColorData, isTextureColorData3),       "SC", "4x3x2 4x3x3 4x0x2", "3x4x2 4x3 4x3x2x1",     "uint8"},
    {TEST_OF(VectorData, isVectorData),                    "SC", "5x1 1x5 1x1",       "2x3 1x5x1 1x0 0x0",     kNumeric},
};
// clang-format on

bool isAmong(const char* words, const std::string& word) {
  return (std::string(" ") + words + " ").find(" " + word + " ") != std::string::npos;
}

/// Elements at which the tests of a class change their mind, as the first two of an array.
std::vector<Numbers> elementsOf(const std::string& className) {
  constexpr double kAboveOne = 1.0000001;  // a single has such a neighbour of 1
  Numbers numbers = {0, 1, 2, 127};
  if (className.front() == 'i') numbers = {-128, -1, 1, 127};
  if (isAmong(kFloat, className))
    numbers = {-0.0,       1,          0.5,         kAboveOne, -kAboveOne, -1e-40,
               2147483647, 2147483648, -2147483649, kNaN,      kInf,       -kInf};
  std::vector<Numbers> lists = {{1, 2, 3, 4, 5}};
  for (const double first : numbers)
    for (const double second : numbers)
      lists.push_back({first, second, 1});
  return lists;
}

/// What is wrong with an array. No type has both a scan and a rule.
Finding expectedOf(const Row& row, bool fitsSize, const vxArray* array) {
  const Numbers numbers = numbersOf(array);
  const vxClassID classID = vxGetClassID(array);
  if (vxIsSparse(array) && row.refuses('S')) return {.failure = Failure::kSparse};
  // Without elements there are no imaginary parts, either.
  if (vxIsComplex(array) && row.refuses('C') && !numbers.empty()) return {Failure::kComplex};
  if (!isAmong(row.classes, vxClassName(classID))) return {Failure::kType, fitsSize, false};
  const Finding bySize{fitsSize ? Failure::kNone : Failure::kSize, fitsSize};
  if (classID == vxLOGICAL_CLASS || (!fitsSize && row.scan.gated)) return bySize;
  if (const auto breach = shaped::findBreach(row.rule, numbers.data(), numbers.size())) {
    const auto element = breach < numbers.size() ? breach : std::nullopt;
    return {Failure::kPredicate, fitsSize, true, element, element};
  }
  const bool areFloats = isAmong(kFloat, vxClassName(classID));
  return plainFinding(row.scan, numbers.data(), numbers.size(), areFloats, bySize);
}

constexpr const char* kKinds[] = {
    "double",         "single",        "int8",           "uint8",
    "int16",          "uint16",        "int32",          "uint32",
    "int64",          "uint64",        "logical",        "char",
    "cell",           "struct",        "object",         "complex double",
    "complex single", "complex int8",  "complex uint8",  "complex uint32",
    "complex int64",  "sparse double", "sparse logical", "sparse complex double"};

/// Calls `check(row, fitsSize, array)` for each row, with arrays of each size and kind; for every
/// so many of their lists of elements.
template <class Check>
void forEachArray(std::size_t every, Check&& check) {
  for (const Row& row : kRows)
    for (const auto& [sizes, fitsSize] : {std::pair(row.taken, true), {row.refused, false}}) {
      std::istringstream words(sizes);
      for (std::string size; words >> size;)
        for (const std::string kind : kKinds) {
          if (kind.starts_with("sparse") && std::ranges::count(size, 'x') > 1) continue;
          SCOPED_TRACE(row.type + " " + row.predicate().name + " " + size + " " + kind);
          const auto lists = elementsOf(kind.substr(kind.rfind(' ') + 1));
          for (std::size_t i = 0; i < lists.size(); i += every)
            check(row, fitsSize, array(size + " " + kind, lists[i]));
        }
    }
}

TEST(Predicates, LookAtTheFormTheSizeTheClassAndTheElements) {
  static constexpr const char* kMessages[] = {
      "", "Sparse(*)", "Complex(*)", "*Size", "*Type", "*Range", "NaN(*)", "Inf(*)", "*Predicate"};
  const auto facts = [](const Finding& of) {
    return std::tuple(of.failure, of.fitsSize, of.fitsClass, of.firstElement, of.decidingElement);
  };
  forEachArray(1, [&](const Row& row, bool fitsSize, const ArrayOwner& given) {
    const Finding expected = expectedOf(row, fitsSize, given.get());
    const Finding found = shaped::examine(row.predicate(), given.get());
    EXPECT_EQ(facts(found), facts(expected)) << testing::PrintToString(numbersOf(given.get()));
    std::string message = kMessages[static_cast<int>(expected.failure)];
    if (!message.empty()) message.replace(message.find('*'), 1, row.type);
    EXPECT_EQ(seenBy(row.holds, given), message);
  });
}

TEST(Predicates, DecideInTheirOrderWhetherATypeTakesAnArray) {
  VLInitialize_vgdatatypes();
  forEachArray(11, [](const Row& asked, bool, const ArrayOwner& given) {
    if (vxIsEmpty(given.get())) return;
    // Each that fails before one holds leaves its message.
    Verdict expected;
    for (const Row& row : kRows) {
      if (expected.first || row.type != asked.type) continue;
      const std::string message = seenBy(row.holds, given);
      expected = {message.empty(), message.empty() ? expected.second : message};
    }
    EXPECT_EQ(verdictOf(asked.type, given.get()), expected);
  });
}

TEST(Predicates, AreAskedOfAValueToo) {
  const ColorMap map(array("2x3 uint8").get());
  EXPECT_TRUE(map.isUINT8ColorMap());
  EXPECT_FALSE(map.isNormalizedColorMap());
  EXPECT_TRUE(Tick(array("3x1 double", {1, 2, 3}).get()).isVerticalVector());
  EXPECT_EQ(shaped::examine(kRows[0].predicate(), nullptr).failure, Failure::kSize);
}

}  // namespace
