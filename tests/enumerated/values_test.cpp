#include "support/GlobalLocale.h"
#include "support/HostError.h"

#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/style_mapping.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vx/scopes.h>

#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace graphics::datatype;
using test::identifierRaisedBy;
using vcos::ArrayOwner;
using vcos::COSValue;
using vcos::OwnedValue;

const COSValue kOn = COSValue::fromLogical(true);
const COSValue kOff = COSValue::fromLogical(false);
const std::string kInvalidName = "VORTIL:datatypes:InvalidEnumValue";
const std::string kUnknownOnOff = "VORTIL:datatypes:onoffboolean:UnknownOnOffBooleanValue";

class Values : public testing::Test {
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

TEST_F(Values, TestsAreNamedAfterTheNamesBarSome) {
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

TEST_F(Values, TypesAreTheirTables) {
  expectShape<LineStyleDataType, LineStyle, LineStyleStyle>();
  expectShape<VG1DrawStyleDataType, VG1DrawStyle, VG1BaseDrawStyle>();
}

TEST_F(Values, ATableOfATypeBesideItFindsNothing) {
  const VG1BaseDrawStyle* table = VG1BaseDrawStyle::getInstance();
  EXPECT_EQ(VG1BaseDrawStyle::getInstance(), table);
  EXPECT_FALSE(table->isValidEnumName("fast"));
  EXPECT_EQ(table->getEnumLength(), 2U);
  EXPECT_TRUE(table->getEnumStrings().empty());
}

TEST_F(Values, StylesMapToThoseOfPrimitives) {
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

COSValue onOff(const ArrayOwner& array) {
  return OnOffBooleanVC().from(COSValue::fromPointer(array.get()));
}

COSValue onOff(const char* text) {
  return OnOffBooleanSC().from(COSValue::fromPointer(text));
}

TEST_F(Values, CharArraysOfAnyShapeAreReadInStorageOrderUpToANul) {
  using namespace std::string_literals;
  EXPECT_EQ(lineStyleOf(charArray({4, 1}, u"none")), 4);
  EXPECT_EQ(lineStyleOf(charArray({2, 2}, u"NONE")), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 2, 1, 2}, u"none")), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 6}, u"none\0x"s)), 4);
  EXPECT_EQ(lineStyleOf(charArray({1, 1'000'000}, std::u16string(999'998, u' ') + u"-.")), 3);
  EXPECT_EQ(onOff(charArray({2, 1}, u"on")), kOn);
  EXPECT_EQ(onOff(charArray({1, 4}, u"on\0x"s)), kOn);
}

TEST_F(Values, BadTextInAnArrayIsRefused) {
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
    EXPECT_EQ(identifierRaisedBy([&] {
                lineStyleOf(charArray({1, text.size()}, text));
              }),
              kInvalidName)
        << text.size();
  EXPECT_EQ(vghost::liveArrays(), arrays);
  EXPECT_EQ(vghost::liveBlocks(), blocks);
}

TEST_F(Values, OnOffTakesEveryWordThatIsNotZeroForOn) {
  const vcos::COSDataType& type = *OnOffBooleanDataType::getType();
  const COSValue two = COSValue::fromInteger(2);
  EXPECT_TRUE(type.isEqual(kOn, two));
  EXPECT_FALSE(type.isEqual(kOff, two));
  EXPECT_EQ(type.compare(two, kOn), 0);
  EXPECT_EQ(type.compare(two, kOff), 1);
  EXPECT_EQ(type.copy(two), two);
  const auto text = [](COSValue value) { return OnOffBooleanSC().to(value).asPointer<char>(); };
  EXPECT_STREQ(text(two), "on");
  EXPECT_EQ(text(kOn), text(two)) << "a constant that nobody frees";
}

TEST_F(Values, OnOffTakesItsTextsInAnyCaseOfTheGlobalLocaleAndNoOtherAbbreviationThanOf) {
  for (const char* text : {"on", "On", "oN", "ON"})
    EXPECT_EQ(onOff(text), kOn) << text;
  for (const char* text : {"off", "OFF", "oFf", "of", "OF"})
    EXPECT_EQ(onOff(text), kOff) << text;
  for (const char* text : {"", "o", "O", " on", "on ", "onn", "offf", "true", "1", "\xC3\xB6n"}) {
    EXPECT_EQ(identifierRaisedBy([&] { onOff(text); }), kUnknownOnOff) << text;
    EXPECT_EQ(identifierRaisedBy([&] { onOff(ArrayOwner(vxCreateString(text))); }), kUnknownOnOff);
  }
  const test::GlobalLocale locale(new test::OddCharacters);
  EXPECT_EQ(onOff("!N"), kOn);
}

TEST_F(Values, OnOffReportsUnreadableTextAsOutOfMemory) {
  const ArrayOwner array(vxCreateString("on"));
  vghost::faults::failHostCall(1, vghost::faults::Repeat::Once);
  EXPECT_EQ(identifierRaisedBy([&] { onOff(array); }), "VORTIL:vg:datatypes:OutOfMemory");
  vghost::faults::disarm();
}

TEST_F(Values, OnOffGivesArraysThatOutliveAScopeAndShareTheirDataButNotThemselves) {
  const auto arrayOf = [](COSValue value) {
    return OnOffBooleanVC().to(value).asPointer<vxArray>();
  };
  vxArrayListContext* context = vxEnterNewArrayListContext();
  for (const COSValue value : {kOn, kOff})
    arrayOf(value);  // left to the context
  vxExitArrayListContext(context, nullptr, 0, true);
  const ArrayOwner first(arrayOf(kOn));
  const ArrayOwner second(arrayOf(kOn));
  EXPECT_EQ(vxArrayToStdString(first.get()), "on");
  EXPECT_EQ(vxArrayToStdString(ArrayOwner(arrayOf(kOff)).get()), "off");
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(vxGetData(first.get()), vxGetData(second.get()));
}

}  // namespace
