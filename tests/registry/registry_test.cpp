// What holds for each registered type.

#include "registry/RegisteredTypes.h"
#include "support/ChildProcess.h"
#include "support/HostError.h"
#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/memory.h>
#include <vcos/COSPackage.h>
#include <vcos/TypeAccess.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using test::RegisteredType;
using vcos::ArrayOwner;
using vcos::copyValue;
using vcos::COSNameID;
using vcos::COSTypeRepository;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

/// The types of the library, and the example of docs/adding-a-type.md.
std::vector<RegisteredType> allTypes() {
  std::vector<RegisteredType> types = test::registeredTypes();
  types.push_back({.name = "Percentage",
                   .bytes = 8,
                   .text = "25%",
                   .printed = "25%",
                   .array = [] { return test::array("1x1 double", {0.5}); },
                   .defaultArray = [] { return test::array("1x1 double", {100}); },
                   .defaultPrinted = "100%",
                   .nullArray = [] { return test::array("0x0 double"); },
                   .obstacles = {}});
  return types;
}

class Taken final : public vcos::COSTypeConversion {
  COSValue to(COSValue value) const override { return value; }
  COSValue from(COSValue value) const override { return value; }
};

class TakenInJava final : public vcos::JavaTypeConversion {
  COSValue to(COSValue value) const override { return value; }
  COSValue from(COSValue value) const override { return value; }
  const char* getJavaDeclarationName() override { return "taken"; }
};

std::string javaNameOf(const RegisteredType& row) {
  auto* const found = vcos::JavaTypeConversion::getConversion(COSNameID(row.dottedName().c_str()));
  return found ? found->getJavaDeclarationName() : "";
}

/// Takes the place of one step of the registration, 0 being the type, and the last the conversion
/// to Java.
void take(const RegisteredType& row, std::size_t step) {
  if (step > row.conversions.size() + 1) return;
  if (step > row.conversions.size())
    return vcos::JavaTypeConversion::addConversion(COSNameID(row.dottedName().c_str()),
                                                   new TakenInJava);
  if (step == 0)
    COSTypeRepository::addType(COSNameID(row.dottedName().c_str()),
                               graphics::datatype::OnOffBooleanDataType::getType());
  else
    COSTypeRepository::addConversion(COSNameID(row.conversions[step - 1].first.c_str()),
                                     COSNameID(row.conversions[step - 1].second.c_str()),
                                     new Taken);
}

/// What was registered before a step that the class system refuses stays, the rest is left out.
void expectRefusedAt(const RegisteredType& row, std::size_t step) {
  if (step > row.conversions.size() + 1) return;
  EXPECT_EQ(javaNameOf(row), step > row.conversions.size() ? "taken" : "") << row.name;
  SCOPED_TRACE(row.name + ", step " + std::to_string(step));
  const COSNameID name(row.dottedName().c_str());
  auto* type = COSTypeRepository::findType(name).getObject();
  ASSERT_NE(type, nullptr);
  EXPECT_TRUE(step == 0 || type->getName() == row.name);
  for (std::size_t i = 0; i < row.conversions.size(); ++i) {
    const auto* found = test::conversion(row.conversions[i].first, row.conversions[i].second);
    EXPECT_EQ(found != nullptr, i < step) << "conversion " << i;
    EXPECT_EQ(dynamic_cast<const Taken*>(found) != nullptr, i + 1 == step) << "conversion " << i;
  }
}

// First in the file: what its children register, no other test has registered before.
TEST(Registration, AddsTheTypeAndItsConversionsInOrderUntilOneIsRefused) {
  // A type that says nothing of a refusal leaves the others alone, so all of those meet one at
  // once.
  using Types = std::vector<RegisteredType>;
  std::vector<Types> groups(1);
  for (const RegisteredType& row : allTypes())
    row.refusalRaises.empty() ? groups[0].push_back(row) : groups.push_back(Types{row});
  for (const Types& group : groups)
    for (const std::size_t step : {0U, 1U, 2U, 3U, 4U})
      test::inChildProcess([&] {
        for (const RegisteredType& row : group)
          take(row, step);
        EXPECT_EQ(test::identifierRaisedBy(VLInitialize_vgdatatypes), group.front().refusalRaises);
        for (const RegisteredType& row : group)
          expectRefusedAt(row, step);
      });
}

class Registry : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  /// Calls `check` with each type, twice: the first time may make what the type keeps.
  template <class Check>
  static void forEachType(Check&& check) {
    for (const RegisteredType& row : allTypes()) {
      SCOPED_TRACE(row.name);
      const auto access = TypeAccess::find(COSNameID(row.dottedName().c_str()));
      ASSERT_TRUE(access && access->textConversion() && access->arrayConversion());
      check(row, *access, access->dataType());
      const std::size_t arrays = vghost::liveArrays();
      const std::size_t blocks = vghost::liveBlocks();
      check(row, *access, access->dataType());
      EXPECT_EQ(vghost::liveArrays(), arrays);
      EXPECT_EQ(vghost::liveBlocks(), blocks);
    }
  }
};

/// Another value than that of the type's array.
COSValue otherValue(const RegisteredType& row, const TypeAccess& access) {
  return row.takesText() ? access.fromText(row.text.c_str())
                         : access.fromArray(row.defaultArray().get());
}

void expectSame(const ArrayOwner& actual, const ArrayOwner& expected) {
  ASSERT_EQ(actual != nullptr, expected != nullptr);
  if (!actual) return;
  EXPECT_EQ(vxGetClassID(actual.get()), vxGetClassID(expected.get()));
  EXPECT_EQ(test::sizeOf(actual.get()), test::sizeOf(expected.get()));
  EXPECT_THAT(test::numbersOf(actual.get()),
              testing::Pointwise(testing::NanSensitiveDoubleEq(), test::numbersOf(expected.get())));
}

TEST_F(Registry, HasTheTypesOfTheTableAndNoOther) {
  EXPECT_EQ(test::registeredTypes().size(), 108U);
  std::vector<std::string> expected;
  for (const RegisteredType& row : allTypes())
    expected.push_back(row.name);
  std::vector<std::string> names;
  for (const auto* type :
       vcos::COSPackage::getPackage(COSNameID("vortil.graphics.datatype"))->getDataTypes())
    names.emplace_back(type->getName());
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(expected));
}

TEST_F(Registry, TypesDescribeThemselves) {
  forEachType([](const RegisteredType& row, const TypeAccess&, const vcos::COSDataType& type) {
    EXPECT_EQ(std::tuple(std::string(type.getName()), std::string(type.getDeclarationName()),
                         type.getStorageType(), type.getSizeInBits(), type.getValueSizeInBytes({}),
                         type.isPossibleValuesFinite()),
              std::tuple(row.name, row.declarationName, row.storageType, 8 * row.bytes, row.bytes,
                         row.isFinite));
    EXPECT_STREQ(type.getCategoryName(), "Fundamental");
  });
}

TEST_F(Registry, DefaultsAreMadeOnceAndAreValues) {
  forEachType([](const RegisteredType& row, const TypeAccess& access, vcos::COSDataType& type) {
    const COSValue value = type.getDefaultValue();
    EXPECT_EQ(type.getDefaultValue(), value);
    EXPECT_EQ(value.isNull(), row.isDefaultNull);
    EXPECT_EQ(test::textOrError(access, value), row.defaultPrinted);
    const ArrayOwner array = access.toArray(value);
    expectSame(array, row.defaultArray());
    if (vxIsEmpty(array.get()) || row.bytes == 0) return;
    const OwnedValue again(type, access.fromArray(array.get()));
    EXPECT_EQ(type.compare(again.get(), value), 0);
  });
}

TEST_F(Registry, CopiesAreEqualAndOutliveWhatTheyWereMadeFrom) {
  forEachType([](const RegisteredType& row, const TypeAccess& access, vcos::COSDataType& type) {
    ArrayOwner array = row.array();
    std::optional<OwnedValue> value;
    value.emplace(type, access.fromArray(array.get()));
    array.reset();
    const OwnedValue copy(type, copyValue(type, value->get()));
    EXPECT_EQ(copy.get() != value->get(), row.isCopied);
    EXPECT_EQ(type.compare(value->get(), copy.get()), row.bytes == 0 ? row.order : 0);
    value.reset();
    expectSame(access.toArray(copy.get()), row.array());
  });
}

TEST_F(Registry, TextsComeBackAndDifferentValuesCompareAsTheTypeSays) {
  forEachType([](const RegisteredType& row, const TypeAccess& access, vcos::COSDataType& type) {
    const OwnedValue one(type, access.fromArray(row.array().get()));
    const OwnedValue other(type, otherValue(row, access));
    EXPECT_EQ(test::textOrError(access, other.get()), row.printed);
    EXPECT_EQ(type.isEqual(one.get(), other.get()), row.order == 0);
    EXPECT_EQ(type.compare(one.get(), other.get()), row.order);
    EXPECT_EQ(type.compare(other.get(), one.get()), row.reverseOrder);
  });
}

TEST_F(Registry, NullIsNoValue) {
  forEachType([](const RegisteredType& row, const TypeAccess& access, vcos::COSDataType& type) {
    const COSValue null;
    type.destroy(null);
    EXPECT_EQ(type.compare(null, null), 0);
    expectSame(access.toArray(null), row.nullArray());
    if (row.bytes == 0) return;
    EXPECT_EQ(test::outcomeOfText(access, nullptr), row.fromNullText);
    EXPECT_EQ(test::outcomeOfArray(access, nullptr), row.fromNullArray);
    if (row.storageType == 0) return;  // the word is a value like any other
    EXPECT_EQ(test::outcomeOf(access, [&](const auto&) { return type.copy(null); }),
              row.copyOfNull);
    EXPECT_EQ(test::textOrError(access, null), row.nullPrinted);
    const OwnedValue value(type, access.fromArray(row.array().get()));
    EXPECT_FALSE(type.isEqual(null, value.get()));
    EXPECT_FALSE(type.isEqual(value.get(), null));
    EXPECT_EQ(type.compare(null, value.get()), 2);
  });
}

TEST_F(Registry, ValuesCrossToJavaOnlyWhereItRuns) {
  forEachType([](const RegisteredType& row, const TypeAccess& access,
                 const vcos::COSDataType& type) {
    auto* const java = vcos::JavaTypeConversion::getConversion(COSNameID(row.dottedName().c_str()));
    ASSERT_NE(java, nullptr);
    const OwnedValue value(type, access.fromArray(row.array().get()));
    EXPECT_EQ(test::identifierRaisedBy([&] { java->to(value.get()); }),
              "VORTIL:class:JavaConversionError");
  });
}

TEST_F(Registry, ThePercentageRefusesWhatItsPageSays) {
  const auto access = TypeAccess::find(COSNameID("vortil.graphics.datatype.Percentage")).value();
  for (const char* text : {"", "25", "%", "25%%", "-1%", "101%", "nan%", " 25%"})
    EXPECT_EQ(test::identifierRaisedBy([&] { access.fromText(text); }),
              "datatypes:Percentage:BadText")
        << text;
  for (const char* words : {"1x1 single", "1x2 double", "0x0 double", "1x1 char"})
    EXPECT_EQ(test::identifierRaisedBy([&] { access.fromArray(test::array(words).get()); }),
              "datatypes:Percentage:BadArray")
        << words;
}

}  // namespace
