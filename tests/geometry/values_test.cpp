// What the types of a few numbers take, and what they make of it.

#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/InsetDataType.h>
#include <graphics/datatype/LightingStrengthDataType.h>
#include <graphics/datatype/PositionDataType.h>
#include <graphics/datatype/PositiveDataType.h>
#include <graphics/datatype/ScreenPositionDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vg/MatrixTraits.h>

#include <cmath>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace graphics::datatype;
using test::accessOf;
using test::ArrayOwner;
using vcos::COSValue;
using vcos::OwnedValue;

/// What a type makes of each of several arrays or texts.
struct Row {
  const char* type;
  const char* outcome;
  const char* given;  ///< with "|" between two
};

class Geometry : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

const char* const kPositionClass = "Matrix_to_vortilRect:ExpectedNumeric";
const char* const kPositionShape = "Matrix_to_vortilRect:Expected4ElementVector";
const char* const kPositionData = "set_chck:DimensionsOutsideRange";
const char* const kThree = "set_chck:Expected3ElementVector";
const char* const kThreeFinite = "set_chck:Matrix_to_3element_Vector_set_check_fcn:ExpectedFinite";
const char* const kThreePositive = "PositivePoint3DataType:ExpectedFinitePositive";
const char* const kVolumeData = "BoundingVolumeDataType:InvalidWidth";
const char* const kCrossed = "VORTIL:InsetDataType:RectangleCrossedPointsException";
const char* const kMargin = "VORTIL:InsetDataType:InvalidInsetException";
const char* const kRange = "valueOutsideValidRange";

OwnedValue valueOf(const vcos::TypeAccess& access, const char* words,
                   const test::Numbers& numbers) {
  return {access.dataType(), access.fromArray(test::array(words, numbers).get())};
}

TEST_F(Geometry, ArraysAreTakenOrRefusedInTheOrderOfTheTypesTests) {
  const Row rows[] = {
      {"Position", "[1 2 3 0]",
       "1x4 numeric 1 2 3 0 | 4x1 numeric 1 2 3 0 | 1x2x2 numeric 1 2 3 0 | sparse 1x4 double 1 2 "
       "3 0 | complex 1x4 double 1 2 3 0"},
      {"Position", "[-0.5 1.23457e-07 1e+20 -0]", "1x4 double -0.5 1.234567e-7 1e20 -0.0"},
      {"Position", kPositionClass,
       "1x4 other 1 | 2x2 other -1 | 1x4 double NaN 0 1 1 | 4x1 single 0 -Inf 1 1 | 1x4 double 0 0 "
       "Inf 1"},
      {"Position", kPositionShape, "2x2 numeric 1 | 1x3 numeric 1 | 0x0 double | 4x2 int8 -1"},
      {"Position", kPositionData,
       "1x4 double 0 0 -1 1 | 1x4 single 0 0 1 -1 | 1x4 double NaN 0 NaN 1 | 1x4 double 0 0 1 -Inf "
       "| 1x4 int8 0 0 -1 1 | 1x4 int16 0 0 1 -1 | 4x1 int32 0 0 -1 1 | 1x4 int64 0 0 1 -1"},
      {"ScreenPosition", "[1 2 3 0]",
       "1x4 integer 1 2 3 0 | 4x1 integer 1 2 3 0 | 1x2x2 integer 1 2 3 0"},
      {"ScreenPosition", "[-1 -2147483648 5 0]", "1x4 int64 -1 2147483648 4294967301 0"},
      {"ScreenPosition", "[-1 200 255 0]", "1x4 uint32 4294967295 200 255 0"},
      {"ScreenPosition", "screenposition:InvalidDataType",
       "1x4 double 1 | 2x2 single -1 | 1x4 other 1"},
      {"ScreenPosition", "screenposition:InvalidFormat", "2x2 integer 1 | 1x5 int8 -1"},
      {"ScreenPosition", "screenposition:InvalidWidthAndHeight",
       "1x4 int8 0 0 -1 1 | 4x1 int64 0 0 1 -1"},
      {"ScreenPosition", "PositionDataType:InvalidScreenPositionException",
       "1x4 uint32 0 0 3e9 1 | 1x4 uint64 0 0 1 2147483648"},
      {"Point2", "[1 2]", "1x2 numeric 1 2 | 2x1 numeric 1 2 | 1x1x2 int8 1 2"},
      {"Point2", "[1 -1]", "1x2 double 1.9 -1.9 | 1x2 single 1.9 -1.9"},
      {"Point2", "[-2147483648 2147483647]",
       "1x2 double NaN 2147483647.9 | 1x2 double 2147483648 2147483647 | 1x2 double -2147483649 "
       "2147483647 | 1x2 double -Inf 2147483647 | 1x2 double -2147483648.5 2147483647 | 1x2 uint64 "
       "2147483648 2147483647"},
      {"Point2", "[-1 0]", "1x2 uint32 4294967295 0 | 1x2 int64 -1 4294967296"},
      {"Point2", "Point2DataType:ArrayClass", "1x2 other 1 | 1x3 other 1"},
      {"Point2", "Point2DataType:ArrayShape", "1x3 numeric 1 | 0x2 double"},
      {"Point2d", "[1 2]", "1x2 numeric 1 2 | 2x1 numeric 1 2"},
      {"Point2d", "[-0.5 9.22337e+18]", "1x2 double -0.5 9223372036854775808"},
      {"Point2d", "Point2dDataType:ArrayClass", "1x2 other 1 | 1x3 other 1"},
      {"Point2d", "Point2dDataType:ArrayShape", "1x3 numeric 1 | 1x1 single NaN"},
      {"Point2d", "Point2dDataType:ArrayData", "1x2 double Inf 0 | 2x1 single 0 NaN"},
      {"Point3", "[-1 0 1]", "1x3 int32 -1 0 1 | 3x1 double -1 0 1"},
      {"Point3", "[1 2 3]", "1x3 numeric 1 2 3 | 1x1x3 numeric 1 2 3"},
      {"Point3", kThree, "1x3 other 1 | 1x2 numeric 1 | 2x2 double NaN"},
      {"Point3", kThreeFinite, "1x3 double NaN 1 1 | 1x3 single 1 1 -Inf"},
      {"PositivePoint3", "[1 2 3]", "1x3 numeric 1 2 3 | 3x1 numeric 1 2 3"},
      {"PositivePoint3", "[4.94066e-324 1 1]", "1x3 double 5e-324 1"},
      {"PositivePoint3", kThree, "1x3 other 1 | 1x4 numeric 0"},
      {"PositivePoint3", kThreePositive,
       "1x3 numeric 1 1 0 | 1x3 int32 -1 1 1 | 1x3 double 1 -0.0 1 | 1x3 double 1 NaN 1 | 1x3 "
       "single Inf 1 1"},
      {"Rectangle2", "[1 2 4 6]", "1x4 numeric 1 2 3 4 | 1x2x2 numeric 1 2 3 4"},
      {"Rectangle2", "[-1 2147483646 0 2147483647]",
       "1x4 double -1.9 2147483646 1.9 2 | 1x4 uint32 4294967295 2147483646 1 9"},
      {"Rectangle2", "Rectangle2DataType:ArrayClass", "1x4 other 1 | 4x1 other 1"},
      {"Rectangle2", "Rectangle2DataType:ArrayShape",
       "4x1 numeric 1 | 2x2 numeric 1 | 1x3 numeric 1"},
      {"Rectangle2", kCrossed, "1x4 double 0 0 NaN 1 | 1x4 int8 0 0 1 -1"},
      {"Inset", "[1 2 3 4]", "1x4 numeric 1 2 3 4 | 1x4x1 numeric 1 2 3 4"},
      {"Inset", "[nan inf 0.5 0]", "1x4 double NaN Inf 0.5 0"},
      {"Inset", kPositionClass, "1x4 other 1 | 4x1 other 1"},
      {"Inset", kPositionShape, "4x1 numeric 1 | 2x2 double -1"},
      {"Inset", kMargin,
       "1x4 double -1 0 | 1x4 int8 0 -1 0 | 1x4 int64 0 0 -1 0 | 1x4 single 0 0 0 -1"},
      {"BoundingVolume", "[ 0 0 0 ; 1 1 1 ]", "2x3 numeric 0 1 0 1 0 1"},
      {"BoundingVolume", "[ 2 2 2 ; 2 2 2 ]", "2x3 numeric 2"},
      {"BoundingVolume", "[ 1 3 5 ; 2 4 6 ]", "2x3x1 int16 1 2 3 4 5 6"},
      {"BoundingVolume", "BoundingVolumeDataType:ArrayClass", "2x3 other 1"},
      {"BoundingVolume", "BoundingVolumeDataType:ArrayShape", "3x2 numeric 1 | 1x6 double 2 1"},
      {"BoundingVolume", kVolumeData,
       "2x3 numeric 1 0 2 | 2x3 numeric 1 1 1 0 2 | 2x3 numeric 1 1 1 1 1 0 | 2x3 double NaN 1 0 1 "
       "| 2x3 single Inf"},
      {"Matrix4x4", "[1 2 2 2;2 2 2 2;2 2 2 2;2 2 2 2]", "4x4 numeric 1 2"},
      {"Matrix4x4", "Matrix4x4DataType:ArrayClass", "4x4 other 1 | 4x3 other 1"},
      {"Matrix4x4", "Matrix4x4DataType:ArrayShape",
       "4x3 numeric 1 | 1x16 double 1 | 4x2x2 double 1 | 0x0 double"},
      {"Positive", "[1]", "1x1 numeric 1 | 1x1x1 numeric 1"},
      {"Positive", "[4.94066e-324]", "1x1 double 5e-324"},
      {"Positive", "invalidPositive", "1x1 other 1 | 1x2 numeric 0 | 0x0 double"},
      {"Positive", kRange, "1x1 numeric 0 | 1x1 int8 -1 | 1x1 double NaN"},
      {"LightingStrength", "[1]", "1x1 numeric 1"},
      {"LightingStrength", "[0]", "1x1 numeric 0"},
      {"LightingStrength", "invalidLightingStrength", "1x1 other 1 | 2x1 numeric 2"},
      {"LightingStrength", kRange, "1x1 numeric 2 | 1x1 double 1.0000001 | 1x1 single NaN"},
  };
  for (const Row& row : rows)
    for (const std::string& words : test::split(row.given))
      test::forEachClass(words, [&row](const std::string& array) {
        EXPECT_EQ(test::outcomeOfArray(accessOf(row.type), test::array(array).get()), row.outcome)
            << row.type << ", " << array;
      });
}

TEST_F(Geometry, BoundsThatDifferOnlyInTheClassOfTheArrayAreComparedInIt) {
  const ArrayOwner bounds = test::array("2x3 uint64 9223372036854775808");
  ++static_cast<std::uint64_t*>(vxGetWritableData(bounds.get()))[0];
  EXPECT_EQ(test::outcomeOfArray(accessOf("BoundingVolume"), bounds.get()), kVolumeData);
}

TEST_F(Geometry, TextsAreNumbersOrWhatTheTypeMakesOfOthers) {
  constexpr const char* kUnreadable = "|hello|[]|[1 2 3 4 5]|[1 2 3 4|1";
  const Row rows[] = {
      {"Position", "[0 0 0 0]", kUnreadable},
      {"Position", "[nan inf 1.5 2]", "[NaN, Inf 1.5 2]"},
      {"Position", "PositionDataType:InvalidPositionException", "[0 0 -1 1]|[0 0 1 -1]"},
      {"ScreenPosition", "[0 0 0 0]", kUnreadable},
      {"ScreenPosition", "[-1 -2147483648 1 2]", "[-1.9 1e10 1.9 2.9]|[-1 NaN 1 2]"},
      {"ScreenPosition", "PositionDataType:InvalidScreenPositionException",
       "[0 0 -1 1]|[0 0 1 3e9]"},
      {"Point2", "ParseException", kUnreadable},
      {"Point2", "[1 -1]", "[1.9 -1.9]"},
      {"Point2d", "ParseException", kUnreadable},
      {"Point2d", "[nan -inf]", "[NaN -Inf]"},
      {"Point3", "ParseException", kUnreadable},
      {"PositivePoint3", "null", kUnreadable},
      {"PositivePoint3", "[-1 0 nan]", "[-1 0 NaN]"},
      {"Rectangle2", "ParseException", kUnreadable},
      {"Rectangle2", "[1 -2 2 2]", "[1.5 -2.5 1.5 4]"},
      {"Rectangle2", kCrossed, "[0 0 -1 0]|[0 0 0 NaN]"},
      {"Inset", "[0 0 0 0]", kUnreadable},
      {"Inset", kMargin, "[-1 0 0 0]|[0 0 0 -1]"},
      {"BoundingVolume", "[ 0 0 0 ; 0 0 0 ]", kUnreadable},
      {"BoundingVolume", "maximum of a box below its minimum", "[1 0 0;0 1 1]|[NaN 0 0;1 1 1]"},
      {"Matrix4x4", "ParseException", kUnreadable},
      {"Positive", "[0.5]", "0.5|[0.5]| [ 5e-1 ] "},
      {"Positive", "thrown invalidValuePositive", "|hello|[]|[1 2]|[1"},
      {"Positive", "thrown valueOutsideValidRange", "0|[-1]|Inf|NaN"},
      {"LightingStrength", "[0]", "0|[0]"},
      {"LightingStrength", "[-0]", "-0.0e5"},
      {"LightingStrength", "thrown invalidValue_0_1", "|hello|[1;2]"},
      {"LightingStrength", "thrown valueOutsideValidRange", "1.0000001|[-1e-300]|NaN"},
  };
  for (const auto& [type, outcome, texts] : rows)
    for (const std::string& text : test::split(texts))
      EXPECT_EQ(test::outcomeOfText(accessOf(type), text.c_str()), outcome) << type << ", " << text;
}

TEST_F(Geometry, MessagesThatStandInTheLibraryHaveTheirTexts) {
  const std::tuple<const char*, const char*, double, const char*> rows[] = {
      {"Inset", "1x4 logical", 0, "Value must be numeric."},
      {"Inset", "4x1 double", 0, "Value must be a 4 element vector."},
      {"Point3", "1x3 char", 1, "Value must be a 3 element numeric vector."},
      {"PositivePoint3", "1x2 double", 1, "Value must be a 3 element numeric vector."},
      {"Point3", "1x3 double", NAN, "Input values must be finite numbers."},
      {"Positive", "1x1 logical", 1, "value not a numeric scalar"},
      {"Positive", "1x1 double", 0, "Value should be greater than 0"},
      {"Positive", "1x1 double", INFINITY, "Value should be a finite number greater than 0"},
      {"LightingStrength", "1x2 double", 1, "value not a numeric scalar"},
      {"LightingStrength", "1x1 double", 2, "Value should be between 0 and 1"},
      {"LightingStrength", "1x1 double", NAN, "Value should be between 0 and 1"}};
  for (const auto& [type, words, number, text] : rows) {
    static_cast<void>(test::outcomeOfArray(accessOf(type), test::array(words, {number}).get()));
    EXPECT_STREQ(test::lastError().text, text) << type << words << number;
  }
  EXPECT_FALSE(Positive::isValid(0, nullptr));
  ErrorMessage message("", "");
  EXPECT_TRUE(LightingStrength::isValid(1, &message) && message.text().empty());
  EXPECT_FALSE(LightingStrength::isValid(NAN, &message));
  EXPECT_EQ(message.identifier(), "VORTIL:datatypes:valueOutsideValidRange");
  EXPECT_EQ(asDouble(Positive(2)) + asDouble(LightingStrength(0.5)), 2.5);
}

/// The text conversion's own answer to a word, without the class system between them.
std::string textFromWord(const char* type, const ArrayOwner& array) {
  const auto* const conversion = accessOf(type).textConversion();
  std::string text;
  const std::string raised = test::identifierRaisedBy([&] {
    const COSValue word = conversion->to(COSValue::fromPointer(array.get()));
    text = word.asPointer<char>();
    utFree(word.asPointer<char>());
  });
  return raised.empty() ? text : test::shortIdentifier(raised);
}

TEST_F(Geometry, TheTextsOfFourTypesAreMadeFromArrays) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"Point2d", "2x1 single", "[-1 2]"},
      {"Point2d", "1x2 int8", "[-1 2]"},
      {"Point2d", "1x3 int8", "Point2dDataType:ArrayShape"},
      {"Point2d", "1x2 char", "Point2dDataType:ArrayClass"},
      {"Point3", "1x3 int32", "[-1 2 2]"},
      {"PositivePoint3", "3x1 double", "[-1 2 2]"},
      {"Point3", "1x2 double", kThree},
      {"PositivePoint3", "1x3 cell", kThree},
      {"Inset", "1x4 int64", "[-1 2 2 2]"},
      {"Inset", "1x2x2 single", "[-1 2 2 2]"},
      {"Inset", "4x1 double", kPositionShape},
      {"Inset", "1x4 logical", kPositionClass}};
  for (const auto& [type, words, text] : rows)
    EXPECT_EQ(textFromWord(type, test::array(words, {-1, 2})), text) << type << words;
  const ArrayOwner large = test::array("1x2 uint64");
  static_cast<std::uint64_t*>(vxGetWritableData(large.get()))[1] = UINT64_MAX;
  EXPECT_EQ(textFromWord("Point2d", large), "[1 18446744073709551615]");
  const ArrayOwner point = test::array("1x3 double");
  const ArrayOwner pair = test::array("1x2 double");
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_EQ(textFromWord("PositivePoint3", point), "Point3DataType:UnknownException");
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(textFromWord("Point2d", pair), vcos::COSOutOfMemoryException);
}

TEST_F(Geometry, EqualityIsExactOrTolerantInEachNumber) {
  const std::tuple<const char*, const char*, bool> rows[] = {
      {"Position", "1x4 double", true},        {"Matrix4x4", "4x4 double", true},
      {"Positive", "1x1 double", true},        {"LightingStrength", "1x1 double", true},
      {"Point2d", "1x2 double", false},        {"Point3", "1x3 double", false},
      {"PositivePoint3", "1x3 double", false}, {"Inset", "1x4 double", false},
      {"ScreenPosition", "1x4 int32", false},  {"Point2", "1x2 int32", false},
      {"Rectangle2", "1x4 int32", false}};
  for (const auto& [type, words, isTolerant] : rows) {
    const auto access = accessOf(type);
    const ArrayOwner array = test::array(words, {1});
    const OwnedValue one = valueOf(access, words, {1});
    for (std::size_t i = 0; i < vxGetNumberOfElements(array.get()); ++i)
      for (const double other : {1 - 5e-13, 1 - 2e-12, 0.5}) {
        test::put(array.get(), i, other);
        const OwnedValue changed(access.dataType(), access.fromArray(array.get()));
        test::put(array.get(), i, 1);
        EXPECT_EQ(access.dataType().isEqual(one.get(), changed.get()),
                  isTolerant && other > 1 - 1e-12)
            << type << i << other;
      }
  }
}

TEST_F(Geometry, ValuesThatAreNaNEqualThemselvesWhereTheTypeLooksAtTheWordsFirst) {
  const std::pair<const char*, bool> rows[] = {
      {"[NaN 0 1 1]", false}, {"[Inf 0 1 1]", true}, {"[0 0 1 1]", true}};
  const auto position = accessOf("Position");
  for (const auto& [text, isEqual] : rows) {
    const OwnedValue value(position.dataType(), position.fromText(text));
    const OwnedValue copy(position.dataType(), position.dataType().copy(value.get()));
    EXPECT_EQ(position.dataType().isEqual(value.get(), value.get()), isEqual) << text;
    EXPECT_EQ(position.dataType().compare(value.get(), copy.get()), isEqual ? 0 : 2) << text;
  }
  const std::pair<const char*, const char*> types[] = {
      {"Point2d", "[NaN 0]"}, {"Point3", "[0 NaN 0]"}, {"PositivePoint3", "[0 0 NaN]"}};
  for (const auto& [type, text] : types) {
    const auto access = accessOf(type);
    const OwnedValue value(access.dataType(), access.fromText(text));
    const OwnedValue copy(access.dataType(), access.dataType().copy(value.get()));
    EXPECT_EQ(access.dataType().compare(value.get(), value.get()), 0) << type;
    EXPECT_EQ(access.dataType().compare(value.get(), copy.get()), 2) << type;
  }
}

TEST_F(Geometry, VolumesAreEqualByTheirCenterAndTheirWidths) {
  const auto access = accessOf("BoundingVolume");
  const auto& type = access.dataType();
  const OwnedValue unit = valueOf(access, "2x3 double", {0, 1, 0, 1, 0, 1});
  for (std::size_t i = 0; i < 6; ++i) {
    const ArrayOwner array = access.toArray(unit.get());
    test::put(array.get(), i, i % 2 == 0 ? -1e-15 : std::nextafter(1, 2));
    const OwnedValue other(type, access.fromArray(array.get()));
    EXPECT_EQ(type.compare(unit.get(), other.get()), 2) << i;
  }
  // What is lost in the center and the width is no difference.
  const OwnedValue wide = valueOf(access, "2x3 double", {-1e300, 1e300, 0, 1, 0, 1});
  const OwnedValue shifted = valueOf(access, "2x3 double", {-1e300, 1e300, -0.0, 1, 0, 1});
  EXPECT_TRUE(type.isEqual(wide.get(), shifted.get()));
}

TEST_F(Geometry, RoundOffIsMeasuredAgainstTheLargerNumberButNeverBelowOne) {
  const std::tuple<double, double, bool> rows[] = {
      {0, 9.99e-13, true},     {0, 1e-12, false},    {1e12, 1e12 + 1, true},
      {1e12 - 1, 1e12, false}, {1e-20, 2e-20, true}, {NAN, NAN, false},
      {1, INFINITY, false},    {0, 1e308, false},    {INFINITY, INFINITY, false}};
  for (const auto& [a, b, isEqual] : rows)
    for (int i = 0; i < 4; ++i) {
      const auto make = [i]<class Value>(double n, std::type_identity<Value>) {
        return Value(i == 0 ? n : 1, i == 1 ? n : 1, i == 2 ? n : 1, i == 3 ? n : 1);
      };
      constexpr std::type_identity<Position> position;
      constexpr std::type_identity<gui_objects::Inset2d> inset;
      EXPECT_EQ(equalWithinRoundoffError(make(a, position), make(b, position)), isEqual) << a << b;
      EXPECT_EQ(equalWithinRoundoffError(make(b, inset), make(a, inset)), isEqual) << a << b;
    }
  EXPECT_TRUE(equalWithinRoundoffError(Position(-1e12, -1, 0, 0), Position(-1e12 - 1, -1, 0, 0)));
  EXPECT_FALSE(equalWithinRoundoffError(Position(5e-13, 0, 0, 0), Position(-5e-13, 0, 0, 0)));
  EXPECT_TRUE(Position(1, 2, 3, 4) == Position(gui_objects::Rectangle2d(1, 2, 3, 4)));
  EXPECT_FALSE(Position(1, 2, 3, 4) == Position(1, 2, 3, 4 + 1e-15));
  const ScreenPosition narrow(2147483647, 0, 1, 0);
  const ScreenPosition wide(2147483647, 0, 2, 0);
  EXPECT_TRUE(nearlyEqual(narrow, wide) && !(narrow == wide));
}

TEST_F(Geometry, ValidationLeavesTheRecordAloneUntilAllTestsHavePassed) {
  position::ValidateExecutor record{9, 9, 9, 9};
  const auto validate = [&record](const ArrayOwner& array) {
    return test::shortIdentifier(
        test::identifierRaisedBy([&] { position::validateArray(record, array.get()); }));
  };
  EXPECT_EQ(validate(test::array("1x4 double", {1, NAN, 3, 4})), kPositionClass);
  EXPECT_EQ(validate({}), kPositionClass);
  EXPECT_EQ(record.x + record.y + record.width + record.height, 36);
  EXPECT_EQ(validate(test::array("4x1 int8", {1, -2, 3, 4})), "");
  EXPECT_EQ(record.x + 10 * record.y + 100 * record.width + 1000 * record.height, 4281);
  EXPECT_THROW(helpPositionArrayValidateExecutor<vg::MatrixTraits<vxINT8_CLASS>>(
                   test::array("1x4 int8", {0, 0, -1, 0}).get()),
               gui_objects::InvalidArrayDataException);
  EXPECT_EQ(test::shortIdentifier(
                test::identifierRaisedBy([] { screenposition::validateArray(nullptr); })),
            "screenposition:InvalidDataType");
}

}  // namespace
