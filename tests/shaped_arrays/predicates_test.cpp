// Each test of each type: a form, sizes and classes in a table, and elements in another.

#include "shaped_arrays/Verdicts.h"
#include "support/Arrays.h"

#include <graphics/datatype/shaped_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace graphics::datatype;
using test::array;
using test::ArrayOwner;
using test::MessagePtr;
using test::Numbers;

using Test = bool (*)(const vxArray*, MessagePtr&);

constexpr double kNaN = NAN;
constexpr double kInf = INFINITY;
constexpr double kAboveOne = 1.0000001;  // a single has such a neighbour of 1

/// What a test says of an array: its message, or "" if it holds.
std::string seenBy(Test holds, const ArrayOwner& array) {
  const auto [held, message] =
      test::verdictOf([&](MessagePtr& left) { return holds(array.get(), left); });
  EXPECT_EQ(held, message.empty());
  return message;
}

/// The elements with which an array passes where only its size is looked at.
enum Fill { kOnes, kRising };

struct Row {
  const char* type;
  const char* name;
  Test holds;
  const char* form;     ///< S: refuses sparse arrays, C: complex ones
  const char* taken;    ///< sizes
  const char* refused;  ///< sizes, by <type>Size unless another message stands behind a colon
  const char* classes;
  Fill fill = kOnes;

  bool refuses(char letter) const {
    return std::string_view(form).find(letter) != std::string::npos;
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
    {TEST_OF(AxesView, isHorizontalView),                  "SC", "1x2",               "1x1 1x3 2x2 1x2x1",     "double"},
    {TEST_OF(AxesView, isVerticalView),                    "SC", "2x1",               "1x1 3x1 2x2 2x1x1",     "double"},
    {TEST_OF(ColorMap, isNormalizedColorMap),              "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1 2x1x3",   kFloat},
    {TEST_OF(ColorMap, isUINT8ColorMap),                   "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1",         "uint8"},
    {TEST_OF(ColorOrder, isColorOrder),                    "C",  "2x3 1x3 0x3",       "3x2 2x4 2x3x1 0x0",     kFloat},
    {TEST_OF(CompositeColorData, isTruecolor),             "C",  "4x5x3 0x2x3",       "4x5x2 4x3 4x5x3x1",     kNumOrLog},
    {TEST_OF(CompositeColorData, isColormapped),           "C",  "4x5 1x1 0x0",       "4x5x3 4x5x1",           kNumOrLog},
    {TEST_OF(Curvature, isOneValue),                       "SC", "1x1",               "1x2 2x1 1x1x1 0x0",     "double"},
    {TEST_OF(Curvature, isTwoValues),                      "SC", "1x2",               "1x1 1x3 2x2 1x2x1",     "double"},
    {TEST_OF(DataBounds, isTwoValuesIncreasing),           "SC", "1x2",               "2x1 1x1x2 1x1:Predicate 1x3:Predicate 0x0:Predicate", kFloat, kRising},
    {TEST_OF(ImageXYData, isRowVector),                    "",   "1x4 1x1 1x0",       "2x1 2x2 1x4x1",         kNumOrLog},
    {TEST_OF(ImageXYData, isColumnVector),                 "",   "4x1 1x1 0x1",       "1x2 2x2 4x1x1",         kNumOrLog},
    {TEST_OF(ImageXYData, isScalarValue),                  "",   "1x1",               "1x2 2x1 1x1x1 0x0",     kNumOrLog},
    {TEST_OF(Limits, isTwoValuesIncreasing),               "SC", "1x2 2x1 1x1x2 2x1x1", "1x1:Predicate 1x3:Predicate 2x2:Predicate 0x0:Predicate", kNumeric, kRising},
    {TEST_OF(LimitsWithInfs, isTwoValuesIncreasing),       "SC", "1x2 2x1 1x1x2 2x1x1", "1x1:Predicate 3x1:Predicate 2x2:Predicate 0x0:Predicate", kNumeric, kRising},
    {TEST_OF(NColorPtr, isTwoColor),                       "SC", "2x3",               "1x3 3x3 2x2 2x3x1",     kFloat},
    {TEST_OF(NColorPtr, isNColor),                         "SC", "3x3 2x3 1x3 0x3",   "3x2 2x3x1 2x2:Predicate", kFloat},
    {TEST_OF(TextPosition, isTextPositionRow2),            "S",  "1x2",               "1x3 2x2 2x1 1x2x1",     kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionRow3),            "S",  "1x3",               "1x2 3x3 1x3x1",         kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionColumn2),         "S",  "2x1",               "3x1 2x2 1x2 2x1x1",     kNumOrLog},
    {TEST_OF(TextPosition, isTextPositionColumn3),         "S",  "3x1",               "2x1 3x3 3x1x1",         kNumOrLog},
    {TEST_OF(Tick, isHorizontalVector),                    "SC", "1x5 1x1",           "2x1 2x2 1x2x1 1x0:Predicate", kFloat, kRising},
    {TEST_OF(Tick, isVerticalVector),                      "SC", "5x1 1x1",           "1x2 2x2 2x1x1 0x1:Predicate", kFloat, kRising},
    {TEST_OF(TickLength, isTwoValues),                     "SC", "1x2 2x1 1x1x2",     "1x1 1x3 2x2 0x2 4x1",   kNumeric},
    {TEST_OF(Numeric2D3DMatrix, isNumeric2DMatrix),        "SC", "2x3 1x1 0x0",       "2x3x1 2x3x4",           kNumeric},
    {TEST_OF(Numeric2D3DMatrix, isNumeric3DMatrix),        "SC", "2x3x4 2x3x1 0x1x1", "2x3 2x3x4x1",           kNumeric},
    {TEST_OF(NumericMatrix, isNumeric2DMatrix),            "C",  "2x3 1x1 0x0",       "2x3x1",                 kNumeric},
    {TEST_OF(NumericOrLogicalMatrix, isNumeric2DMatrixOrLogical), "C", "2x3 1x1 0x0", "2x3x1",                 kNumOrLog},
    {TEST_OF(PatchFaces, isPatchFaces),                    "SC", "2x3 1x1 0x0",       "2x3x1",                 kNumeric},
    {TEST_OF(PatchFaceVertexAlphaData, isFaceVertexAlphaData), "SC", "3x1 1x1 0x1",   "1x2 3x2 3x1x1",         kNumeric},
    {TEST_OF(PatchFaceVertexCData, isFaceVertexCData1Col), "SC", "3x1 1x1 0x1",       "1x2 3x3 3x1x1",         kNumeric},
    {TEST_OF(PatchFaceVertexCData, isFaceVertexCData3Col), "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchNormals, isNormals),                     "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchVertices, isVertices3),                  "SC", "2x3 0x3",           "3x2 2x1 2x3x1",         kNumeric},
    {TEST_OF(PatchVertices, isVertices2),                  "SC", "3x2 0x2",           "2x3 2x1 3x2x1",         kNumeric},
    {TEST_OF(PrimitiveColorData, isTruecolor),             "SC", "4x3 4x0",           "3x4 1x4 4x3x1",         "uint8"},
    {TEST_OF(PrimitiveColorData, isColormapped),           "SC", "1x5 1x0",           "2x5 5x1 1x5x1",         "single"},
    {TEST_OF(PrimitiveColorData, isTexturemapped2d),       "SC", "2x5 2x0",           "1x5 5x2 2x5x1",         "single"},
    {TEST_OF(PrimitiveNormalsData, isNormalsData),         "SC", "3x2 3x0",           "2x3 3x2x1",             "single"},
    {TEST_OF(PrimitiveRGBAData, isTruecolor),              "SC", "4x3 4x0",           "3x4 4x3x1",             "uint8"},
    {TEST_OF(PrimitiveStripData, isStripData),             "SC", "1x3 1x0",           "3x1 2x2 1x3x1",         "uint32"},
    {TEST_OF(PrimitiveVertexData, isVertexData),           "SC", "3x2 3x3 3x0",       "2x3 3x2x1",             "single"},
    {TEST_OF(PrimitiveVertexIndices, isPrimitiveIndices),  "SC", "1x3 1x0",           "3x1 2x2 1x3x1",         "uint32"},
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

/// A size of a row, and the message for it in the classes that the row takes.
struct SizeCase {
  std::string size;
  std::string failure;

  bool hasElements() const { return std::ranges::count(test::sizeNamed(size), 0U) == 0; }
  bool isMatrix() const { return std::ranges::count(size, 'x') == 1; }
};

/// Calls `check(row, size case, elements)` for each row and size.
template <class Check>
void forEachSize(Check&& check) {
  for (const Row& row : kRows) {
    const auto withSizes = [&](const char* sizes, const char* failure) {
      std::istringstream words(sizes);
      for (std::string word; words >> word;) {
        SCOPED_TRACE(std::string(row.type) + "::" + row.name + " " + word);
        const std::size_t colon = std::min(word.find(':'), word.size());
        const std::string own = colon < word.size() ? word.substr(colon + 1) : failure;
        const Numbers elements = row.fill == kOnes ? Numbers{1} : Numbers{1, 2, 3, 4, 5};
        check(row, SizeCase{word.substr(0, colon), own}, elements);
      }
    };
    withSizes(row.taken, "");
    withSizes(row.refused, "Size");
  }
}

bool isAmong(const char* words, const std::string& word) {
  return (std::string(" ") + words + " ").find(" " + word + " ") != std::string::npos;
}

TEST(Predicates, LookAtTheClassAfterTheSizeAndNameTheLastFailure) {
  forEachSize([](const Row& row, const SizeCase& each, const Numbers& elements) {
    for (const char* className :
         {"double", "single", "int8", "uint8", "int16", "uint16", "int32", "uint32", "int64",
          "uint64", "logical", "char", "cell", "struct", "object"}) {
      const ArrayOwner given = array(each.size + " " + className, elements);
      const std::string failure = isAmong(row.classes, className) ? each.failure : "Type";
      EXPECT_EQ(seenBy(row.holds, given), test::messageOf(row.type, failure)) << className;
    }
  });
}

TEST(Predicates, LookAtTheFormFirst) {
  forEachSize([](const Row& row, const SizeCase& each, const Numbers& elements) {
    const auto expectFailure = [&](const std::string& words, bool isRefused, const char* failure) {
      const std::string plain = words.substr(words.find(each.size));
      EXPECT_EQ(seenBy(row.holds, array(words, elements)),
                isRefused ? test::messageOf(row.type, failure)
                          : seenBy(row.holds, array(plain, elements)))
          << words;
    };
    for (const char* className : {"double", "single", "int8", "uint8", "uint32", "int64"})
      // Without elements there are no imaginary parts, either.
      expectFailure("complex " + each.size + " " + className,
                    row.refuses('C') && each.hasElements(), "Complex");
    if (!each.isMatrix()) return;
    expectFailure("sparse " + each.size + " double", row.refuses('S'), "Sparse");
    expectFailure("sparse " + each.size + " logical", row.refuses('S'), "Sparse");
    const bool refusesBoth = row.refuses('S') && row.refuses('C');
    if (refusesBoth) expectFailure("sparse complex " + each.size + " double", true, "Sparse");
  });
}

struct ElementRow {
  const char* type;
  const char* name;
  Test holds;
  struct Case {
    const char* failure;  ///< "" where the test holds
    const char* words;
    Numbers elements;
  };
  std::vector<Case> cases;
};

// clang-format off
const ElementRow kElementRows[] = {
    {TEST_OF(AxesView, isHorizontalView), {{"NaN", "1x2 double", {0, kNaN}}, {"NaN", "1x2 double", {kNaN, kInf}}, {"Inf", "1x2 double", {-kInf, kNaN}}, {"Size", "1x3 double", {kNaN}}}},
    {TEST_OF(AxesView, isVerticalView), {{"NaN", "2x1 double", {kNaN, 0}}, {"Inf", "2x1 double", {0, kInf}}, {"Size", "1x2 double", {kInf}}}},
    {TEST_OF(ColorMap, isNormalizedColorMap), {{"", "2x3 double", {0, 1, 0.5, kNaN, -0.0, 1}}, {"", "2x3 single", {kNaN}}, {"Range", "2x3 double", {1, -1e-300}}, {"Range", "2x3 single", {kAboveOne, 0}}, {"Range", "2x3 double", {2, kNaN}}}},
    {TEST_OF(ColorMap, isNormalizedColorMap), {{"Inf", "2x3 double", {2, kInf, 2}}, {"Inf", "2x3 single", {kNaN, -kInf}}, {"Range", "4x2 double", {0, 2}}, {"Inf", "4x2 double", {0, kInf}}, {"Size", "4x2 double", {0, kNaN}}}},
    {TEST_OF(ColorMap, isUINT8ColorMap), {{"", "2x3 uint8", {0, 255}}}},
    {TEST_OF(ColorOrder, isColorOrder), {{"", "2x3 double", {0, 1, 0.5, -0.0}}, {"Range", "2x3 single", {0, -1e-40}}, {"Range", "4x2 double", {0, 2}}, {"NaN", "2x3 double", {2, kNaN, kInf}}, {"NaN", "4x2 double", {0, kNaN, 2}}, {"Inf", "2x3 double", {2, kInf, kNaN}}}},
    {TEST_OF(Curvature, isOneValue), {{"Range", "1x1 double", {-1e-300}}, {"Range", "1x1 double", {kInf}}, {"NaN", "1x1 double", {kNaN}}, {"Size", "1x2 double", {2}}}},
    {TEST_OF(Curvature, isTwoValues), {{"", "1x2 double", {0, 1}}, {"Range", "1x2 double", {0, -kInf}}, {"NaN", "1x2 double", {2, kNaN}}, {"NaN", "1x2 double", {kNaN, 2}}, {"Size", "1x3 double", {kNaN}}}},
    {TEST_OF(DataBounds, isTwoValuesIncreasing), {{"", "1x2 double", {1, 1}}, {"Predicate", "1x2 single", {1, 0}}, {"Predicate", "2x1 double", {-kInf, kInf}}}},
    {TEST_OF(ImageXYData, isRowVector), {{"NaN", "1x3 double", {1, kNaN, kInf}}, {"Inf", "2x2 single", {1, -kInf, kNaN}}, {"NaN", "sparse 1x3 double", {1, kNaN}}}},
    {TEST_OF(ImageXYData, isColumnVector), {{"Inf", "3x1 single", {1, kInf}}, {"NaN", "1x2 double", {kNaN}}}},
    {TEST_OF(ImageXYData, isScalarValue), {{"Inf", "1x1 double", {-kInf}}, {"NaN", "1x4 double", {1, 2, kNaN, 3}}}},
    {TEST_OF(Limits, isTwoValuesIncreasing), {{"", "1x2 int8", {-128, 127}}, {"Predicate", "2x1 uint8", {2, 1}}, {"Predicate", "1x2 single", {0, kInf}}}},
    {TEST_OF(LimitsWithInfs, isTwoValuesIncreasing), {{"", "1x2 double", {-kInf, kInf}}, {"Predicate", "1x2 int64", {1, -1}}, {"Predicate", "1x2 single", {1, 1}}}},
    {TEST_OF(NColorPtr, isTwoColor), {{"", "2x3 double", {-5, kNaN, kInf, 9}}}},
    {TEST_OF(NColorPtr, isNColor), {{"", "3x3 double", {0, 1, kNaN, -0.0}}, {"Predicate", "3x3 single", {1, kAboveOne}}, {"Predicate", "3x2 double", {2}}}},
    {TEST_OF(TextPosition, isTextPositionRow2), {{"", "complex 1x2 double", {kNaN, kInf}}}},
    {TEST_OF(Tick, isHorizontalVector), {{"", "1x1 double", {kNaN}}, {"", "1x3 single", {-kInf, 0, kInf}}, {"Predicate", "2x2 double", {1, 2, 3, 3}}}},
    {TEST_OF(Tick, isVerticalVector), {{"", "2x1 double", {0, kInf}}, {"Predicate", "4x1 single", {1, 2, 3, kNaN}}}},
    {TEST_OF(TickLength, isTwoValues), {{"", "1x2 double", {7, -7}}, {"NaN", "1x2 double", {kNaN, kInf}}, {"Inf", "2x1 single", {1, -kInf}}, {"NaN", "1x3 double", {1, 2, kNaN}}}},
    {TEST_OF(PatchFaces, isPatchFaces), {{"", "2x3 double", {1, 4, 2147483647, kNaN, 3, kNaN}}, {"", "1x2 single", {kNaN, 2147483520}}, {"Range", "1x3 double", {0, 1, 2}}, {"Range", "1x2 double", {kNaN, -0.0}}, {"Range", "1x2 double", {1, -2147483648.0}}}},
    {TEST_OF(PatchFaces, isPatchFaces), {{"Range", "1x3x1 double", {1, 0}}, {"Type", "1x2 double", {1.5, 2}}, {"Type", "1x2 double", {0, 0.5}}, {"Type", "1x2 single", {1.5, 0}}, {"Type", "1x2x2 single", {1, 2.5}}, {"Type", "1x2 double", {1, 2147483647.5}}}},
    {TEST_OF(PatchFaces, isPatchFaces), {{"Type", "1x2 single", {1, 2147483648.0}}, {"Type", "1x2 double", {-2147483649.0, 1}}, {"Type", "1x2 double", {1, kInf}}, {"Type", "1x2 single", {-kInf, 1}}, {"Type", "1x200 single", {0, -4194305.5, 1}}}},
    {TEST_OF(PatchFaces, isPatchFaces), {{"", "1x2 int8", {1, 127}}, {"Range", "1x3 int16", {1, -1, 2}}, {"Range", "1x3x1 uint16", {1, 0, 2}}}},
    {TEST_OF(PrimitiveColorData, isTruecolor), {{"", "4x1 uint8", {0, 255}}}},
    {TEST_OF(PrimitiveColorData, isColormapped), {{"NaN", "1x5 single", {1, kNaN, kInf}}, {"Size", "3x1 single", {kNaN}}}},
    {TEST_OF(PrimitiveColorData, isTexturemapped2d), {{"Inf", "2x1 single", {-kInf, kNaN}}, {"Size", "1x5 single", {kNaN}}}},
    {TEST_OF(PrimitiveNormalsData, isNormalsData), {{"", "3x1 single", {-1, 1, 0}}, {"Range", "3x1 single", {kAboveOne, 0}}, {"Range", "3x1 single", {0, -kAboveOne, 0}}, {"NaN", "3x1 single", {2, kNaN, 0}}, {"Inf", "3x1 single", {2, 0, -kInf}}, {"Size", "2x3 single", {2, kNaN}}}},
    {TEST_OF(PrimitiveStripData, isStripData), {{"Range", "1x3 uint32", {1, 0, 4294967295}}, {"Size", "2x2 uint32", {0}}}},
    {TEST_OF(PrimitiveVertexData, isVertexData), {{"NaN", "3x1 single", {1, kNaN, kInf}}, {"Inf", "3x1 single", {1, kInf, kNaN}}, {"Size", "2x3 single", {kNaN}}}},
    {TEST_OF(PrimitiveVertexIndices, isPrimitiveIndices), {{"Range", "1x3 uint32", {4294967295, 1, 0}}, {"Size", "2x2 uint32", {0}}}},
};
// clang-format on

TEST(Predicates, LookAtTheElementsInTheOrderOfTheirTests) {
  for (const ElementRow& row : kElementRows)
    for (const auto& [failure, words, elements] : row.cases)
      EXPECT_EQ(seenBy(row.holds, array(words, elements)), test::messageOf(row.type, failure))
          << row.name << " " << words << " " << testing::PrintToString(elements);
}

TEST(Predicates, AreAskedOfAValueToo) {
  const ColorMap map(array("2x3 uint8").get());
  EXPECT_TRUE(map.isUINT8ColorMap());
  EXPECT_FALSE(map.isNormalizedColorMap());
  EXPECT_TRUE(Tick(array("3x1 double", {1, 2, 3}).get()).isVerticalVector());
}

/// A type asks its tests in their order until one holds. Each that fails leaves its message.
void expectVerdict(const std::string& type, const ArrayOwner& given) {
  if (vxIsEmpty(given.get())) return;
  test::Verdict expected;
  for (const Row& row : kRows) {
    if (expected.first || row.type != type) continue;
    const std::string message = seenBy(row.holds, given);
    expected = {message.empty(), message.empty() ? expected.second : message};
  }
  EXPECT_EQ(test::verdictOf(type, given.get()), expected) << type;
}

TEST(Predicates, DecideInTheirOrderWhetherATypeTakesAnArray) {
  VLInitialize_vgdatatypes();
  forEachSize([](const Row& row, const SizeCase& each, const Numbers& elements) {
    for (const char* className : {"double", "single", "uint8", "uint32", "logical", "char"})
      expectVerdict(row.type, array(each.size + " " + className, elements));
    if (!each.isMatrix()) return;
    expectVerdict(row.type, array("sparse " + each.size + " double", elements));
    expectVerdict(row.type, array("complex " + each.size + " double", elements));
  });
  for (const ElementRow& row : kElementRows)
    for (const auto& [failure, words, elements] : row.cases)
      expectVerdict(row.type, array(words, elements));
}

}  // namespace
