#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/faults.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/scopes.h>

#include <cstring>
#include <locale>
#include <string>

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

ArrayOwner numeric(std::size_t m, std::size_t n, vxClassID classID) {
  return ArrayOwner(vxCreateNumericMatrix(m, n, classID, vxREAL));
}

TEST_F(OnOff, DescribesItself) {
  EXPECT_STREQ(type.getName(), "on_off");
  EXPECT_STREQ(type.getDeclarationName(), "char");
  EXPECT_STREQ(type.getCategoryName(), "Fundamental");
  EXPECT_STREQ(type.getPossibleValuesDescription(), "on/off");
  EXPECT_EQ(type.getDescription(), nullptr);
  EXPECT_EQ(type.getStorageType(), 0);
  EXPECT_EQ(type.getSizeInBits(), 8U);
  EXPECT_EQ(type.getValueSizeInBytes(kOn), 1U);
  EXPECT_TRUE(type.isPossibleValuesFinite());
  EXPECT_EQ(type.getDefaultValue(), kOff);
  EXPECT_EQ(OnOffBooleanDataType::getType(), OnOffBooleanDataType::getType());
}

TEST_F(OnOff, ListsOnBeforeOffAlthoughOffIsTheDefault) {
  vcos::Enumeration<COSValue> values = type.getPossibleValues();
  ASSERT_TRUE(values.hasMoreElements());
  EXPECT_EQ(values.nextElement(), kOn);
  EXPECT_EQ(values.nextElement(), kOff);
  EXPECT_FALSE(values.hasMoreElements());
}

TEST_F(OnOff, ComparesTruthAndOrdersIt) {
  const COSValue two = COSValue::fromInteger(2);
  EXPECT_TRUE(type.isEqual(kOn, two));
  EXPECT_FALSE(type.isEqual(kOff, two));
  EXPECT_EQ(type.compare(two, kOn), 0);
  EXPECT_EQ(type.compare(kOff, kOn), -1);
  EXPECT_EQ(type.compare(two, kOff), 1);
  EXPECT_EQ(type.copy(two), two);
  type.destroy(two);
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
  struct ShoutingCtype : std::ctype<char> {
    // A locale in which "!" is the upper case of "n".
    const char* do_tolower(char* low, const char* high) const override {
      for (; low != high; ++low)
        *low = *low == '!' ? 'n' : std::ctype<char>::do_tolower(*low);
      return high;
    }
  };
  const std::locale old = std::locale::global(std::locale(std::locale(), new ShoutingCtype));
  const COSValue value = fromText("O!");
  std::locale::global(old);
  EXPECT_EQ(value, kOn);
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

  const char* fields[] = {"on"};
  const ArrayOwner refused[] = {
      numeric(1, 1, vxLOGICAL_CLASS),
      numeric(0, 0, vxDOUBLE_CLASS),
      numeric(1, 2, vxUINT8_CLASS),
      ArrayOwner(vxCreateCellMatrix(1, 1)),
      ArrayOwner(vxCreateFunctionHandle("on")),
      ArrayOwner(vxCreateStructMatrix(1, 1, 1, fields)),
  };
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
