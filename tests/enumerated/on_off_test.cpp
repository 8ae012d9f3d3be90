#include "support/Arrays.h"
#include "support/GlobalLocale.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/faults.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/scopes.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using graphics::datatype::OnOffBooleanDataType;
using graphics::datatype::OnOffBooleanSC;
using graphics::datatype::OnOffBooleanVC;
using test::identifierRaisedBy;
using vcos::ArrayOwner;
using vcos::COSValue;

constexpr const char* kUnknown = "VORTIL:datatypes:onoffboolean:UnknownOnOffBooleanValue";
constexpr const char* kIncorrect = "VORTIL:datatypes:onoffboolean:IncorrectValue";
constexpr const char* kOutOfMemory = "VORTIL:vg:datatypes:OutOfMemory";

const COSValue kOn = COSValue::fromLogical(true);
const COSValue kOff = COSValue::fromLogical(false);

class OnOff : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  const vcos::COSDataType& type = *OnOffBooleanDataType::getType();
};

COSValue fromText(const char* text) {
  return OnOffBooleanSC().from(COSValue::fromPointer(text));
}

COSValue fromArray(const ArrayOwner& array) {
  return OnOffBooleanVC().from(COSValue::fromPointer(array.get()));
}

TEST_F(OnOff, ListsOnBeforeOffAlthoughOffIsTheDefault) {
  EXPECT_STREQ(type.getPossibleValuesDescription(), "on/off");
  EXPECT_EQ(type.getDescription(), nullptr);
  vcos::Enumeration<COSValue> values = type.getPossibleValues();
  ASSERT_TRUE(values.hasMoreElements());
  EXPECT_EQ(values.nextElement(), kOn);
  EXPECT_EQ(values.nextElement(), kOff);
  EXPECT_FALSE(values.hasMoreElements());
}

TEST_F(OnOff, TakesEveryWordThatIsNotZeroForOn) {
  const COSValue two = COSValue::fromInteger(2);
  EXPECT_TRUE(type.isEqual(kOn, two));
  EXPECT_FALSE(type.isEqual(kOff, two));
  EXPECT_EQ(type.compare(two, kOn), 0);
  EXPECT_EQ(type.compare(two, kOff), 1);
  EXPECT_EQ(type.copy(two), two);
}

TEST_F(OnOff, TakesItsTextsInAnyCaseAndNoOtherAbbreviationThanOf) {
  for (const char* text : {"on", "On", "oN", "ON"})
    EXPECT_EQ(fromText(text), kOn) << text;
  for (const char* text : {"off", "OFF", "oFf", "of", "OF"})
    EXPECT_EQ(fromText(text), kOff) << text;
  for (const char* text : {"", "o", "O", " on", "on ", "onn", "offf", "true", "1", "\xC3\xB6n"})
    EXPECT_EQ(identifierRaisedBy([&] { fromText(text); }), kUnknown) << text;
}

TEST_F(OnOff, LowersByTheGlobalLocaleWithoutNeedingTheClassicOne) {
  const test::GlobalLocale locale(new test::OddCharacters);
  EXPECT_EQ(fromText("!N"), kOn);
}

TEST_F(OnOff, PrintsConstantsThatNobodyFrees) {
  const auto text = [](COSValue value) { return OnOffBooleanSC().to(value).asPointer<char>(); };
  EXPECT_STREQ(text(COSValue::fromInteger(7)), "on");
  EXPECT_STREQ(text(kOff), "off");
  EXPECT_EQ(text(kOn), text(kOn));
}

TEST_F(OnOff, TakesCharArraysOnly) {
  EXPECT_EQ(fromArray(ArrayOwner(vxCreateString("On"))), kOn);
  EXPECT_EQ(fromArray(ArrayOwner(vxCreateString("of"))), kOff);
  EXPECT_EQ(identifierRaisedBy([] { fromArray(ArrayOwner(vxCreateString(""))); }), kUnknown);
  EXPECT_EQ(identifierRaisedBy([] { fromArray(ArrayOwner(vxCreateString("maybe"))); }), kUnknown);

  std::vector<ArrayOwner> refused;
  for (const char* words : {"1x1 logical", "0x0 double", "1x2 uint8", "1x1 cell", "1x1 struct"})
    refused.push_back(test::array(words));
  refused.emplace_back(vxCreateFunctionHandle("on"));
  for (const ArrayOwner& array : refused)
    EXPECT_EQ(identifierRaisedBy([&] { fromArray(array); }), kIncorrect)
        << vxGetClassName(array.get());
}

TEST_F(OnOff, ReadsCharArraysOfAnyShapeInStorageOrder) {
  const std::size_t column[] = {2, 1};
  const ArrayOwner array(vxCreateCharArray(2, column));
  std::memcpy(vxGetWritableData(array.get()), u"on", 4);
  EXPECT_EQ(fromArray(array), kOn);

  // The text ends at a NUL, as every text that is handed to a text conversion does.
  const vxChar withNul[] = {'o', 'n', 0, 'x'};
  EXPECT_EQ(fromArray(ArrayOwner(vxCreateString_UTF16(withNul, 4))), kOn);
}

TEST_F(OnOff, GivesArraysThatOutliveTheScopeInWhichTheFirstOneWasMade) {
  const auto text = [](COSValue value) {
    const ArrayOwner array(OnOffBooleanVC().to(value).asPointer<vxArray>());
    return vxArrayToStdString(array.get());
  };
  vxArrayListContext* context = vxEnterNewArrayListContext();
  EXPECT_EQ(text(kOn), "on");
  EXPECT_EQ(text(kOff), "off");
  vxExitArrayListContext(context, nullptr, 0, true);
  EXPECT_EQ(text(COSValue::fromInteger(-1)), "on");
  EXPECT_EQ(text(kOff), "off");
}

TEST_F(OnOff, SharesTheDataOfItsArraysButNeverTheArrayItself) {
  ArrayOwner first(OnOffBooleanVC().to(kOn).asPointer<vxArray>());
  const ArrayOwner second(OnOffBooleanVC().to(kOn).asPointer<vxArray>());
  ASSERT_NE(first.get(), second.get());
  EXPECT_EQ(vxGetData(first.get()), vxGetData(second.get()));
  static_cast<vxChar*>(vxGetWritableData(first.get()))[0] = 'x';
  EXPECT_EQ(vxArrayToStdString(second.get()), "on");
}

TEST_F(OnOff, ReportsUnreadableTextAsOutOfMemory) {
  const ArrayOwner array(vxCreateString("on"));
  vghost::faults::failHostCall(1, vghost::faults::Repeat::Once);
  EXPECT_EQ(identifierRaisedBy([&] { fromArray(array); }), kOutOfMemory);
  vghost::faults::disarm();
  EXPECT_EQ(fromArray(array), kOn);
}

TEST_F(OnOff, IsTheTextFormOfBoolScalars) {
  const auto access = vcos::TypeAccess::find(vcos::COSNameID("bool"));
  ASSERT_TRUE(access);
  EXPECT_EQ(access->toText(access->fromText("ON")), "on");
  EXPECT_EQ(access->toText(kOff), "off");
  EXPECT_EQ(identifierRaisedBy([&] { static_cast<void>(access->fromText("true")); }), kUnknown);
}

}  // namespace
