// What the colour types take, and what they make of it.

#include "support/Arrays.h"
#include "support/ChildProcess.h"
#include "support/FailingNew.h"
#include "support/GlobalLocale.h"
#include "support/HostError.h"
#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/ColorTableDataType.h>
#include <graphics/datatype/MarkerColorDataType.h>
#include <graphics/datatype/MeshAlphaDataType.h>
#include <graphics/datatype/MeshColorDataType.h>
#include <graphics/datatype/RGBAColorDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/faults.h>
#include <vx/scopes.h>

#include <cmath>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace graphics::datatype;
using test::accessOf;
using test::ArrayOwner;
using test::identifierRaisedBy;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

class Colours : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

/// In the order RGBAColor, MarkerColor, MeshColor, MeshAlpha.
constexpr const char* kTypes[] = {"RGBAColor", "MarkerColor", "MeshColor", "MeshAlpha"};
using Outcomes = std::vector<std::string>;

/// What all types make of an array or a text.
template <class Given>
Outcomes outcomesOf(std::string (*outcomeOfGiven)(const TypeAccess&, Given), Given given) {
  Outcomes outcomes;
  for (const char* type : kTypes)
    outcomes.push_back(outcomeOfGiven(accessOf(type), given));
  return outcomes;
}
Outcomes outcomesOf(const ArrayOwner& array) {
  return outcomesOf<const vxArray*>(test::outcomeOfArray, array.get());
}

const std::string kElements = "ValueMustBe3ElementVector";
const std::string kMarkerElements = "MarkerColor:ValueMustBe3ElementVector";
const std::string kMeshElements = "MeshColor:ValueMustBe3ElementVector";
const std::string kDouble = "ValueMustBe3Double";
const std::string kNumeric = "Matrix_to_Real:ExpectedNumeric";
const std::string kNumeric1 = "Matrix_to_Real:ExpectedNumeric1";
const std::string kOutside = "Matrix_to_Real:ValueOutsideRange";
const std::string kBadColor = "ColorBase:BadColorValue";
const std::string kParse = "RGBAColor:ParseError";
const std::string kAmbiguous = "RGBAColor:AmbiguousName";

/// The three colours alike, and MeshAlpha.
Outcomes alike(const std::string& color, const std::string& alpha) {
  return {color, color, color, alpha};
}

TEST_F(Colours, FromArraysAreTakenOrRefusedInTheOrderOfTheTypesTests) {
  using Array = std::pair<const char*, test::Numbers>;
  const auto count = [](const std::string& first, const std::string& alpha) {
    return Outcomes{first, kMarkerElements, kMeshElements, alpha};
  };
  const auto notDouble = [](const std::string& color) {
    return Outcomes{kDouble, color, color, kNumeric};
  };
  const std::pair<Outcomes, std::vector<Array>> rows[] = {
      {alike("[ 1 0.5 0 ]", kNumeric),
       {{"1x3 double", {1, 0.5, 0}},
        {"3x1 double", {1, 0.5, 0}},
        {"1x1x3 double", {1, 0.5, 0}},
        {"sparse 1x3 double", {1, 0.5, 0}},
        {"complex 1x3 double", {1, 0.5, 0}}}},
      {alike("[ -0 1 1 ]", kNumeric), {{"1x3 double", {-0.0, 1, 1}}}},
      {alike(kBadColor, kNumeric),
       {{"1x3 double", {1, 0, std::nextafter(1, 2)}},
        {"1x3 double", {1, -1e-300, 0}},
        {"1x3 double", {NAN, 0, 0}},
        {"1x3 double", {0, 0, INFINITY}}}},
      {count("[ 1 0 0 ]", kNumeric), {{"2x2 double", {1, 0, 0, 0.5}}}},
      {count(kBadColor, kNumeric), {{"1x4 double", {1, 0, 0, 2}}}},
      {count(kElements, kNumeric), {{"1x2 double", {1}}, {"1x5 double", {1}}, {"0x3 double", {}}}},
      {count(kDouble, kNumeric), {{"1x2 uint16", {1}}}},
      {count(kElements, "0.25"), {{"1x1 double", {0.25}}}},
      {count(kElements, "1"), {{"1x1 double", {1}}}},
      {count(kElements, kOutside), {{"1x1 double", {-0.5}}, {"1x1 double", {NAN}}}},
      {count(kDouble, kOutside), {{"1x1 single", {INFINITY}}, {"1x1 int16", {2}}}},
      {count(kDouble, "1"), {{"1x1 uint8", {1}}}},
      {notDouble("[ 1 0.5 0 ]"), {{"1x3 single", {1, 0.5, 0}}}},
      {notDouble(kBadColor), {{"1x3 single", {2}}}},
      {notDouble("[ 1 0 0.2 ]"), {{"1x3 uint8", {255, 0, 51}}}},
      {notDouble("[ 0 1 1 ]"), {{"1x3 int32", {256, -1, 511}}, {"1x3 int8", {0, -1, -1}}}},
      {notDouble("[ 0 0 0 ]"), {{"1x3 uint64", {1e18, 0, 0}}}},
      {{"[ 1 0 1 ]", kNumeric, kNumeric1, kNumeric}, {{"1x3 logical", {1, 0, 1}}}},
      {{kElements, kMarkerElements, kNumeric1, kNumeric},
       {{"1x2 logical", {1}}, {"1x1 logical", {1}}}},
      {{kDouble, kNumeric, kNumeric1, kNumeric}, {{"1x3 cell", {1}}}},
      {{kDouble, kMarkerElements, kNumeric1, kNumeric}, {{"1x1 struct", {1}}}},
      {{kParse, "MarkerColor:ParseError", "MeshColor:ParseError", kNumeric1}, {{"0x0 char", {}}}},
      {alike("datatypes:OutOfMemory", kNumeric1), {{"1x2 char", {0, 'r'}}}},
      {alike("[ 1 0 0 ]", kNumeric1), {{"1x1 char", {'r'}}}},
  };
  for (const auto& [expected, arrays] : rows)
    for (const auto& [words, numbers] : arrays) {
      EXPECT_EQ(outcomesOf(test::array(words, numbers)), expected)
          << words << testing::PrintToString(numbers);
    }
}

TEST_F(Colours, FromTextsAreWordsNamesOrNumbers) {
  const std::pair<Outcomes, std::vector<const char*>> rows[] = {
      {alike("[ 1 0 0 ]", kNumeric1), {"red", "R", "[1, 0 0]", " [1 0 0 0.5]"}},
      {alike("[ 0 1 1 ]", kNumeric1), {"c"}},
      {alike("[ 0.123457 1e-07 0 ]", kNumeric1), {"[0.1234567 1e-7 0]"}},
      {alike("none", kNumeric1), {"none", " N "}},
      {alike(kAmbiguous, kNumeric1), {"bl"}},
      {alike(kBadColor, kNumeric1), {"[1 0 2]", "[NaN 0 0]", "[0 0 0 -1]"}},
      {alike(kParse, kNumeric1),
       {" red", "color", "alpha", "[1 0]", "[1;0;0]", "[1 0 0 0 0]", "1e400", "nan", "hello"}},
      {{kParse, "auto", kParse, kNumeric1}, {"a"}},
      {{kParse, "flat", "flat", "flat"}, {"F"}},
      {{kParse, kParse, "interp", "interp"}, {"i"}},
      {{kParse, kParse, "texturemap", "texturemap"}, {"t"}},
      {alike(kParse, "0.5"), {"0.5", " 0.5 and more"}},
      {alike(kParse, "0"), {"0,5"}},
      {alike(kParse, kOutside), {"1.5", "-1e-9"}},
  };
  struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const test::GlobalLocale locale(new DecimalComma);
  const auto fromText = [](const char* text) { return outcomesOf(test::outcomeOfText, text); };
  for (const auto& [expected, texts] : rows)
    for (const char* text : texts) {
      EXPECT_EQ(fromText(text), expected) << text;
      EXPECT_EQ(outcomesOf(ArrayOwner(vxCreateString(text))), expected) << text;
    }
  EXPECT_EQ(fromText(""), alike(kAmbiguous, kNumeric1));
  // A word that is also a name, whose colour is none.
  test::inChildProcess([&] {
    ColorNameTable::getInstance()->addNamedColor("nonesuch", 2, 0, 0, false);
    for (const char* text : {"n", "none"})
      EXPECT_EQ(fromText(text), (Outcomes{kAmbiguous, "MarkerColor:AmbiguousName",
                                          "MeshColor:AmbiguousName", kNumeric1}));
    EXPECT_EQ(fromText("nones"), alike(kBadColor, kNumeric1));
  });
}

/// All that a text makes, since it does not print all of it.
template <class Value>
Value valueOf(const char* type, const char* text) {
  const TypeAccess access = accessOf(type);
  const OwnedValue value(access.dataType(), access.fromText(text));
  return *value.get().asPointer<Value>();
}

TEST_F(Colours, HaveChannelsThatDoNotPrint) {
  EXPECT_EQ(valueOf<RGBAColor>("RGBAColor", "[1 0 0 0.5]"), RGBAColor(1, 0, 0, 0.5));
  EXPECT_EQ(valueOf<MarkerColor>("MarkerColor", "[1 0 0 0]"), MarkerColor(1, 0, 0, 0));
  EXPECT_EQ(ColorBase(valueOf<RGBAColor>("RGBAColor", "none")), ColorBase(0, 0, 0, 1));
  EXPECT_EQ(valueOf<MeshAlpha>("MeshAlpha", "flat").getAlpha(), 1);
  const TypeAccess access = accessOf("RGBAColor");
  const OwnedValue clear(access.dataType(),
                         access.fromArray(test::array("1x4 double", {1, 0, 0, 0}).get()));
  auto& color = *clear.get().asPointer<RGBAColor>();
  EXPECT_EQ(color, RGBAColor(1, 0, 0, 0));
  EXPECT_EQ(access.toText(clear.get()), "[ 1 0 0 ]");
  color.setStyle(static_cast<ColorStyle::value>(7));
  EXPECT_EQ(access.toText(clear.get()), std::nullopt);
}

TEST_F(Colours, NamesLeaveAlphaAloneAndNumbersSetIt) {
  ColorBase color(0.1, 0.2, 0.3, 0.5);
  const std::pair<const char*, ColorBase> rows[] = {{"red", ColorBase(1, 0, 0, 0.5)},
                                                    {"[0 1 0]", ColorBase(0, 1, 0, 1)},
                                                    {"[0 0 1 0.25]", ColorBase(0, 0, 1, 0.25)}};
  for (const auto& [text, expected] : rows) {
    color.setColorFromString(text);
    EXPECT_EQ(color, expected) << text;
  }
  const std::string bad = "VORTIL:vg:ColorBase:BadColorValue";
  // The channels are set one after the other, and none is taken back.
  EXPECT_EQ(identifierRaisedBy([&] { color.setColorFromString("[0.5 2 0.5]"); }), bad);
  EXPECT_EQ(color, ColorBase(0.5, 0, 1, 0.25));
  for (auto set :
       {&ColorBase::setRed, &ColorBase::setGreen, &ColorBase::setBlue, &ColorBase::setAlpha}) {
    (color.*set)(0.75);
    for (const double channel : {-0.1, 1.1, double{NAN}})
      EXPECT_EQ(identifierRaisedBy([&] { (color.*set)(channel); }), bad);
  }
  EXPECT_EQ(color, ColorBase(0.75, 0.75, 0.75, 0.75));
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ(identifierRaisedBy([i] {
                ColorBase(i == 0 ? 2 : 1, i == 1 ? 2 : 1, i == 2 ? 2 : 1, i == 3 ? 2 : 1);
              }),
              bad);
  const test::Content bytes{{4, 1}, {255, 128, 0, 64}};
  EXPECT_EQ(test::contentOf(ColorBase(1, 0.5, 0, 0.25).getColorAsArray()), bytes);
  const gui_objects::Color4b clamped = gui_objects::Color4d(2, -1, NAN, 0.00196).asColor4b();
  EXPECT_EQ(std::vector<int>(clamped.data(), clamped.data() + 4), (std::vector{255, 0, 0, 0}));
}

template <class Color, class Style = typename Color::StyleTable>
void expectStyles() {
  const Color color(1, 0, 0, 0.5);
  const Color clear(1, 0, 0, 0);
  EXPECT_TRUE(color.getStyle() == Style::kColor && color.isVisible() && !clear.isVisible());
  EXPECT_FALSE(color == clear);
  Color one = color;
  Color other = clear;
  for (int number = -1; number < 9; ++number) {
    const auto style = static_cast<typename Style::value>(number);
    one.setStyle(style);
    other.setStyle(style);
    EXPECT_EQ(one == other, style != Style::kColor) << number;
    EXPECT_EQ(one == color, style == Style::kColor) << number;
    EXPECT_EQ(one.isVisible(), style != Style::kNone) << number;
    EXPECT_EQ(other.isVisible(), style != Style::kNone && style != Style::kColor) << number;
  }
}

TEST_F(Colours, ChannelsCountOnlyInTheStyleThatStandsForThem) {
  expectStyles<RGBAColor>();
  expectStyles<MarkerColor>();
  expectStyles<MeshColor>();
  MarkerColor marker;
  EXPECT_TRUE(marker.isColor());
  marker.setStyle(MarkerColorStyle::kAuto);
  EXPECT_TRUE(marker.isAuto() && !marker.isColor() && !marker.isNone() && !marker.isFlat());
  MeshColor mesh;
  mesh.setStyle(MeshColorStyle::kTexturemap);
  EXPECT_TRUE(mesh.isTexturemap() && !mesh.isInterp());
  MeshAlpha flat(MeshAlphaStyle::kFlat, 0.5);
  EXPECT_TRUE(flat.isFlat() && !flat.isAlpha());
  EXPECT_TRUE(flat == MeshAlpha(MeshAlphaStyle::kFlat, 1) && !(flat == MeshAlpha(0.5)));
  EXPECT_FALSE(MeshAlpha(0.5) == MeshAlpha(0.25));
  EXPECT_EQ(identifierRaisedBy([&] { flat.setAlpha(NAN); }),
            "VORTIL:vg:dt_conv:Matrix_to_Real:ValueOutsideRange");
  EXPECT_EQ(flat.getAlpha(), 0.5);
  EXPECT_EQ(identifierRaisedBy([] { MeshAlpha(MeshAlphaStyle::kFlat, 2); }),
            "VORTIL:vg:dt_conv:Matrix_to_Real:ValueOutsideRange");
}

TEST_F(Colours, TheColorTableIsReadAndExtendedAsAStruct) {
  test::inChildProcess([] {
    ColorNameTable& names = *ColorNameTable::getInstance();
    const auto write = [&names](const vxArray* array) {
      EXPECT_EQ(ColorTableVC().from(COSValue::fromPointer(array)), COSValue::fromPointer(&names));
    };
    static constexpr const char* kFields[] = {"mauve",  "Red",   "red",    "few",
                                              "unreal", "bytes", "nothing"};
    const ArrayOwner colors(vxCreateStructMatrix(1, 2, 7, kFields));
    const auto put = [&colors](int field, const char* words, const test::Numbers& numbers) {
      vxSetFieldByNumber(colors.get(), 0, field, test::array(words, numbers).release());
    };
    put(0, "2x2 double", {0.5, 2, -1, 9});
    put(1, "1x3 double", {1});
    put(2, "3x1 double", {0.25});
    put(3, "1x2 double", {1});
    put(4, "complex 1x3 double", {1});
    put(5, "1x3 uint8", {1});
    for (std::uint64_t nth = 1; names.getNames().size() == 14; ++nth) {
      test::failNew(nth);
      try {
        write(colors.get());
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(names.getColorValue("r").green, 0) << "all names are added, or none";
      }
      test::failNoNew();
    }
    for (const char* words : {"1x3 double", "0x0 struct", "1x1 object", "1x1 cell"})
      write(test::array(words).get());
    write(nullptr);
    EXPECT_EQ(names.getNames().size(), 16U);
    EXPECT_EQ(names.getColorValue("r").green, 0.25);

    vxArrayListContext* const context = vxEnterNewArrayListContext();
    const ArrayOwner read(getColorTableAsArray());
    const COSValue defaultWord = ColorTableDataType::getType()->getDefaultValue();
    vxExitArrayListContext(context, nullptr, 0, true);
    EXPECT_EQ(test::sizeOf(defaultWord.asPointer<vxArray>()), (test::Size{0, 0}));
    ASSERT_EQ(vxGetNumberOfFields(read.get()), 16);
    EXPECT_STREQ(vxGetFieldNameByNumber(read.get(), 0), "Red");
    EXPECT_STREQ(vxGetFieldNameByNumber(read.get(), 11), "mauve");
    const vxArray* const mauve = vxGetFieldByNumber(read.get(), 0, 11);
    EXPECT_EQ(test::sizeOf(mauve), (test::Size{1, 3}));
    EXPECT_EQ(test::numbersOf(mauve), (test::Numbers{0.5, 2, -1}));
    write(read.get());
    EXPECT_EQ(names.getNames().size(), 16U);
  });
}

TEST_F(Colours, TheColorTableHasNoWordsToHold) {
  const vcos::COSDataType& type = *ColorTableDataType::getType();
  vcos::COSClass owner("Owner", nullptr);
  owner.addProperty("Names", vcos::COSNameID("vortil.graphics.datatype.ColorTable"));
  const vcos::COSInterfacePtr object = owner.createObject();
  vcos::COSPropInfo& names = *vcos::COSPropInfoPtr(owner.properties()[0]).getObject();
  const COSValue word = ColorTableVC().from({});  // no host array: a copy of it would crash
  names.setValue(object.get(), word);
  names.setValue(object.get(), word);
  EXPECT_TRUE(names.getValue(object.get()).isNull());
  // The type itself takes its words for arrays.
  const ArrayOwner array = test::array("1x1 double");
  const COSValue copy = type.copy(COSValue::fromPointer(array.get()));
  EXPECT_EQ(type.compare(copy, COSValue::fromPointer(array.get())), 2);
  EXPECT_EQ(vxGetScalar(copy.asPointer<vxArray>()), 1);
  type.destroy(copy);
  EXPECT_TRUE(accessOf("ColorTable").fromText("red").isNull());
}

}  // namespace
