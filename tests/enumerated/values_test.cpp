#include "support/HostError.h"

#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/style_mapping.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>

#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace graphics::datatype;
using vcos::ArrayOwner;
using vcos::COSValue;
using vcos::OwnedValue;

constexpr const char* kInvalid = "VORTIL:datatypes:InvalidEnumValue";

class EnumeratedValues : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

template <class Value>
Value valueOf(int number) {
  return Value(static_cast<typename Value::value>(number));
}

/// The tests of a class in the order of the numbers for which they are true; each for its own only.
template <class Value>
void expectTests(const std::vector<bool (Value::*)() const noexcept>& tests, int first = 0) {
  for (int number = -1; number < 20; ++number)
    for (std::size_t i = 0; i < tests.size(); ++i) {
      const int own = first + static_cast<int>(i);
      EXPECT_EQ((valueOf<Value>(number).*tests[i])(), own == number) << number << ", " << own;
    }
}

TEST_F(EnumeratedValues, TestsAreNamedAfterTheNamesBarSome) {
  using L = LineStyle;
  expectTests<L>({&L::isSolid, &L::isDashed, &L::isDotted, &L::isDashdot, &L::isNone});
  using M = MarkerStyle;
  expectTests<M>({&M::isPlus, &M::isCircle, &M::isAsterisk, &M::isPoint, &M::isX, &M::isSquare,
                  &M::isDiamond, &M::isTriangle, &M::isPyramid, &M::isRight, &M::isLeft,
                  &M::isPentagram, &M::isHexagram, &M::isNone});
  using P = PrimMarkerStyle;  // 7 is "downtriangle" and 8 is "triangle"
  expectTests<P>({&P::isPlus, &P::isCircle, &P::isAsterisk, &P::isPoint, &P::isX, &P::isSquare,
                  &P::isDiamond, &P::isTriangle, &P::isPyramid, &P::isRight, &P::isLeft,
                  &P::isPentagram, &P::isHexagram, &P::isNone});
  expectTests<AxisClipping>({&AxisClipping::isOff, &AxisClipping::isOn, &AxisClipping::is3d});
  using G = GridMajorMinor;
  expectTests<G>({&G::isMajor, &G::isMajorandminor, &G::isMinor});
  expectTests<EraseMode>({&EraseMode::isNormal, &EraseMode::isXor});
  expectTests<NextPlot>({&NextPlot::isNew, &NextPlot::isAdd});
  using R = RenderEngineType;
  expectTests<R>({&R::isPainters, &R::isZbuffer, &R::isOpengl}, 1);
  expectTests<Units>({&Units::isPixels, &Units::isCharacters}, 4);
  expectTests<UnitsWithData>({&UnitsWithData::isCharacters}, 2);
  expectTests<ColorbarCDataMapping>({&ColorbarCDataMapping::isDirect0based}, 3);
}

TEST_F(EnumeratedValues, CompareByNumber) {
  EXPECT_EQ(LineStyle(), valueOf<LineStyle>(0));
  EXPECT_NE(LineStyle(), valueOf<LineStyle>(1));
}

template <class Type, class Value, class Style>
void expectShape() {
  static_assert(sizeof(Value) == 24 && std::is_base_of_v<EnumBase, Value>);
  static_assert(std::has_virtual_destructor_v<Value>);
  static_assert(std::is_base_of_v<EnumStringType, Style>);
  // The table is the first part of the object and the data type the second.
  auto* whole = dynamic_cast<Type*>(Type::getType());
  ASSERT_NE(whole, nullptr);
  EXPECT_EQ(static_cast<void*>(static_cast<Style*>(whole)), whole);
  EXPECT_NE(static_cast<void*>(Type::getType()), whole);
}

TEST_F(EnumeratedValues, TypesAreTheirTables) {
  expectShape<LineStyleDataType, LineStyle, LineStyleStyle>();
  expectShape<VG1DrawStyleDataType, VG1DrawStyle, VG1BaseDrawStyle>();
}

TEST_F(EnumeratedValues, ATableOfATypeBesideItFindsNothing) {
  const VG1BaseDrawStyle* table = VG1BaseDrawStyle::getInstance();
  EXPECT_EQ(VG1BaseDrawStyle::getInstance(), table);
  const auto* type = dynamic_cast<VG1DrawStyleDataType*>(VG1DrawStyleDataType::getType());
  ASSERT_NE(type, nullptr);
  EXPECT_NE(static_cast<const VG1BaseDrawStyle*>(type), table);
  EXPECT_FALSE(table->isValidEnumName("fast"));
  EXPECT_EQ(table->getEnumLength(), 2U);
  EXPECT_TRUE(table->getEnumStrings().empty());
  EXPECT_TRUE(type->isValidEnumName("fast"));
}

TEST_F(EnumeratedValues, StylesMapToThoseOfPrimitives) {
  for (const int number :
       {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, -1, INT_MAX, INT_MIN}) {
    const PrimMarkerStyle marker =
        convertMarkerStyleToPrimMarkerStyle(valueOf<MarkerStyle>(number));
    EXPECT_EQ(marker.getIntValue(), number >= 0 && number <= 13 ? number : 13);
    const PrimLineStyle line = convertLineStyleToPrimLineStyle(valueOf<LineStyle>(number));
    EXPECT_EQ(line.getIntValue(), number >= 0 && number <= 4 ? number : 0);
  }
}

/// The number of the line style that an array stands for, by a conversion of the test's own.
int lineStyleOf(const ArrayOwner& array) {
  const auto& type = *dynamic_cast<LineStyleDataType*>(LineStyleDataType::getType());
  const OwnedValue value(type, LineStyleVC(type).from(COSValue::fromPointer(array.get())));
  return value.get().asPointer<const LineStyle>()->getIntValue();
}

ArrayOwner charArray(const std::vector<std::size_t>& size, const std::u16string& text) {
  ArrayOwner array(vxCreateCharArray(size.size(), size.data()));
  std::memcpy(vxGetWritableData(array.get()), text.data(), text.size() * sizeof(char16_t));
  return array;
}

TEST_F(EnumeratedValues, CharArraysOfAnyShapeAreReadInStorageOrderUpToANul) {
  using namespace std::string_literals;
  EXPECT_EQ(lineStyleOf(charArray({4, 1}, u"none")), 4);
  EXPECT_EQ(lineStyleOf(charArray({2, 2}, u"NONE")), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 2, 1, 2}, u"none")), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 6}, u"none\0x"s)), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 1'000'000}, std::u16string(999'998, u' ') + u"-.")), 3);
}

TEST_F(EnumeratedValues, BadTextInAnArrayIsRefused) {
  using namespace std::string_literals;
  const std::u16string kBad[] = {
      u"\0none"s,
      u"\0"s,
      u" "s,
      u"nonee"s,
      u"no ne"s,
      u"\u00E9"s,
      u"\uFF0D"s,
      u"\xD800"s,
      u"none\xDC00"s,
      u"\xDE00\xD83D"s,
      u"\u00A0none"s,
      u"{0}%s%n"s,
      std::u16string(1'000'000, u'n'),
  };
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  for (const std::u16string& text : kBad)
    EXPECT_EQ(test::identifierRaisedBy([&] {
                lineStyleOf(charArray({1, text.size()}, text));
              }),
              kInvalid)
        << text.size();
  EXPECT_EQ(vghost::liveArrays(), arrays);
  EXPECT_EQ(vghost::liveBlocks(), blocks);
}

}  // namespace
