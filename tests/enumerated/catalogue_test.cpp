// What holds for each of the enumerated types, against a list of them that is written by hand.

#include "enumerated/Catalogue.h"
#include "enumerated/PlainRule.h"
#include "shaped_arrays/Catalogue.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/catalog.h>
#include <messages/translation.h>
#include <ut/memory.h>
#include <vcos/COSPackage.h>
#include <vcos/TypeAccess.h>
#include <vcos/TypedEnumStringType.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace component_VORTIL::catalog_datatypes;
using graphics::datatype::EnumBase;
using test::EnumeratedType;
using test::kEnumeratedTypes;
using vcos::ArrayOwner;
using vcos::COSNameID;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

int numberOf(COSValue value) {
  return value.asPointer<const EnumBase>()->getIntValue();
}

std::string upperCased(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

std::string textOf(const ArrayOwner& array) {
  return vxArrayToStdString(array.get());
}

/// The number of the value of a text by the text conversion, or by the array conversion.
int numberByText(const TypeAccess& access, const std::string& text) {
  const OwnedValue value(access.dataType(), access.fromText(text.c_str()));
  return numberOf(value.get());
}
int numberByArray(const TypeAccess& access, const vxArray* array) {
  const OwnedValue value(access.dataType(), access.fromArray(array));
  return numberOf(value.get());
}

/// Expects that `work` raises a message, with these arguments in this order.
template <class Work>
void expectRaised(const resource_core::BaseMsgID& message, Work&& work) {
  EXPECT_EQ(test::identifierRaisedBy(work), message.definition().identifier);
  const char* identifier = nullptr;
  const char* text = nullptr;
  vxGetLastErrIdAndMsg(&identifier, &text);
  EXPECT_EQ(text, vghost::messages::text(message, vghost::messages::locale()));
}

class Catalogue : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  void SetUp() override {
    arrays_ = vghost::liveArrays();
    blocks_ = vghost::liveBlocks();
  }

  template <class Check>
  void forEachType(Check&& check) {
    for (const EnumeratedType& type : kEnumeratedTypes) {
      SCOPED_TRACE(type.name);
      const auto access = TypeAccess::find(COSNameID(type.dottedName().c_str()));
      ASSERT_TRUE(access && access->textConversion() && access->arrayConversion());
      check(type, *access, access->dataType());
    }
  }

  void expectNothingLeftOver() const {
    EXPECT_EQ(vghost::liveArrays(), arrays_);
    EXPECT_EQ(vghost::liveBlocks(), blocks_);
  }

 private:
  std::size_t arrays_ = 0;
  std::size_t blocks_ = 0;
};

TEST_F(Catalogue, IsComplete) {
  std::vector<std::string> expected = {"on_off"};
  for (const EnumeratedType& type : kEnumeratedTypes)
    expected.push_back(type.name);
  for (const test::ShapedType& type : test::kShapedTypes)
    expected.push_back(type.name);
  ASSERT_EQ(expected.size(), 80U);
  std::vector<std::string> names;
  for (const auto* type :
       vcos::COSPackage::getPackage(COSNameID("vortil.graphics.datatype"))->getDataTypes())
    names.emplace_back(type->getName());
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(expected));
}

TEST_F(Catalogue, TypesDescribeThemselves) {
  forEachType([](const EnumeratedType& expected, const auto&, vcos::COSDataType& type) {
    EXPECT_EQ(type.getName(), expected.name);
    EXPECT_EQ(type.getDeclarationName(), expected.name);
    EXPECT_STREQ(type.getCategoryName(), "Fundamental");
    EXPECT_EQ(type.getStorageType(), 7);
    EXPECT_EQ(type.getSizeInBits(), 192U);
    EXPECT_EQ(type.getValueSizeInBytes({}), 24U);
    EXPECT_TRUE(type.isPossibleValuesFinite());

    const auto host =
        vcos::COSTypeRepository::getType(COSNameID(expected.tableName().c_str())).getObject();
    const auto* table = dynamic_cast<const vcos::TypedEnumStringType*>(host);
    ASSERT_NE(table, nullptr) << expected.tableName();
    EXPECT_EQ(table->getEnumLength(), expected.names.size());
    EXPECT_EQ(table->getSizeInBits(), 32U) << "built on uint32 scalar";
  });
}

TEST_F(Catalogue, TypesListTheirValuesInOrderAndGiveThemAway) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access, auto& type) {
    test::NamesAndValues listed;
    for (auto values = type.getPossibleValues(); values.hasMoreElements();) {
      const OwnedValue value(type, values.nextElement());
      listed.emplace_back(access.toText(value.get()).value_or("null"), numberOf(value.get()));
    }
    EXPECT_EQ(listed, expected.names);
  });
  expectNothingLeftOver();
}

TEST_F(Catalogue, DefaultsAreMadeOnce) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access, auto& type) {
    const COSValue value = type.getDefaultValue();
    EXPECT_EQ(access.toText(value), expected.defaultName);
    EXPECT_EQ(type.getDefaultValue(), value);
  });
}

TEST_F(Catalogue, ValuesAreEqualByNumberAndHaveNoOrder) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access, auto& type) {
    std::optional<OwnedValue> copyOfFirst;
    {
      const OwnedValue first(type, access.fromText(expected.names.front().first.c_str()));
      copyOfFirst.emplace(type, type.copy(first.get()));
      EXPECT_NE(copyOfFirst->get(), first.get());
      EXPECT_EQ(type.compare(first.get(), copyOfFirst->get()), 0);
    }
    const COSValue one = copyOfFirst->get();  // lives on
    EXPECT_EQ(numberOf(one), expected.names.front().second);
    const OwnedValue other(type, access.fromText(expected.names.back().first.c_str()));
    EXPECT_FALSE(type.isEqual(one, other.get()));
    EXPECT_EQ(type.compare(one, other.get()), 2);
    EXPECT_EQ(type.compare(other.get(), one), 2);

    const COSValue null;
    EXPECT_TRUE(type.isEqual(null, null));
    EXPECT_FALSE(type.isEqual(null, one));
    EXPECT_FALSE(type.isEqual(one, null));
    EXPECT_EQ(type.compare(null, null), 0);
    EXPECT_EQ(type.compare(null, one), 2);
    EXPECT_TRUE(type.copy(null).isNull());
    type.destroy(null);
  });
}

TEST_F(Catalogue, NamesGoInAnyCaseWithSpaceAroundThemAndComeBackPlain) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access, auto& type) {
    for (const auto& [name, number] : expected.names) {
      for (const std::string& text : {name, upperCased(name), " \t" + upperCased(name) + "\n "}) {
        EXPECT_EQ(numberByText(access, text), number) << text;
        const ArrayOwner array(vxCreateString(text.c_str()));
        const OwnedValue value(type, access.fromArray(array.get()));
        EXPECT_EQ(numberOf(value.get()), number) << text;
        EXPECT_EQ(access.toText(value.get()), name);
        EXPECT_EQ(textOf(access.toArray(value.get())), name);
      }
    }
  });
}

TEST_F(Catalogue, EveryBeginningOfANameIsTakenIfItIsOfOneNameOnly) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access, auto&) {
    std::vector<std::string_view> names;
    for (const auto& [name, number] : expected.names)
      names.emplace_back(name);
    for (const auto& [name, number] : expected.names) {
      for (std::size_t length = 0; length <= name.size() + 1; ++length) {
        const std::string text = length > name.size() ? name + "!" : name.substr(0, length);
        SCOPED_TRACE(text);
        const ArrayOwner array(vxCreateString(text.c_str()));
        if (const auto match = test::plainMatch(names, text)) {
          EXPECT_EQ(numberByText(access, text), expected.names[*match].second);
          EXPECT_EQ(numberByArray(access, array.get()), expected.names[*match].second);
          continue;
        }
        const key_InvalidEnumValue refusal(text, expected.name);
        expectRaised(refusal, [&] { numberByText(access, text); });
        if (!text.empty()) expectRaised(refusal, [&] { numberByArray(access, array.get()); });
      }
    }
  });
}

TEST_F(Catalogue, OnlyTextIsTakenFromArrays) {
  const char* fields[] = {"none"};
  const ArrayOwner name(vxCreateString("none"));
  ArrayOwner cell(vxCreateCellMatrix(1, 1));
  vxSetCell(cell.get(), 0, vxCreateSharedDataCopy(name.get()));
  const ArrayOwner logical(vxCreateNumericMatrix(1, 1, vxLOGICAL_CLASS, vxREAL));
  const ArrayOwner structure(vxCreateStructMatrix(1, 1, 1, fields));
  const ArrayOwner function(vxCreateFunctionHandle("none"));
  const ArrayOwner noNumbers(vxCreateDoubleMatrix(0, 0, vxREAL));
  const std::size_t noRows[] = {0, 4, 2};
  const ArrayOwner noText(vxCreateCharArray(3, noRows));
  const ArrayOwner emptyText(vxCreateString(""));
  forEachType([&](const EnumeratedType& expected, const TypeAccess& access, auto&) {
    const ArrayOwner number(vxCreateDoubleScalar(expected.names.front().second));
    for (const vxArray* array : {number.get(), cell.get(), logical.get(), structure.get(),
                                 function.get(), noNumbers.get()})
      expectRaised(key_InvalidEnumValueFor(expected.name), [&] { numberByArray(access, array); });
    for (const vxArray* array : {noText.get(), emptyText.get()})
      expectRaised(key_InvalidValue(expected.name), [&] { numberByArray(access, array); });
  });
}

TEST_F(Catalogue, NullHasNoTextAndAnEmptyArray) {
  forEachType([](const auto&, const TypeAccess& access, auto&) {
    EXPECT_EQ(access.toText({}), std::nullopt);
    const ArrayOwner array = access.toArray({});
    ASSERT_TRUE(array);
    EXPECT_EQ(vxGetClassID(array.get()), vxCHAR_CLASS);
    EXPECT_TRUE(vxIsEmpty(array.get()));
    EXPECT_TRUE(access.fromArray(nullptr).isNull());
  });
  expectNothingLeftOver();
}

TEST_F(Catalogue, TablesWithoutATypeHaveTheirNamesToo) {
  using namespace graphics::datatype;
  struct Table {
    const char* name;
    EnumStringType* table;
    const char* names;
  };
  const Table tables[] = {
      {"ColorStyle", ColorStyle::getInstance(), "none 0 color 1"},
      {"MarkerColorStyle", MarkerColorStyle::getInstance(), "color -1 none 0 flat 1 auto 2"},
      {"MeshAlphaStyle", MeshAlphaStyle::getInstance(), "alpha -1 flat 0 interp 1 texturemap 2"},
      {"MeshColorStyle", MeshColorStyle::getInstance(),
       "color -1 none 0 flat 1 interp 2 texturemap 3"},
  };
  for (const auto& [name, table, text] : tables) {
    SCOPED_TRACE(name);
    const test::NamesAndValues names = test::namesAndValues(text);
    EXPECT_EQ(table->getEnumLength(), names.size());
    std::vector<std::string> listed;
    for (const auto& [own, value] : names) {
      listed.push_back(own);
      EXPECT_TRUE(table->isValidEnumName(own.c_str()));
      EXPECT_EQ(table->getEnumValue(own.c_str()), COSValue::fromInteger(value));
      EXPECT_EQ(table->getEnumString(COSValue::fromInteger(value)), own);
    }
    EXPECT_EQ(table->getEnumStrings(), listed);
    const std::string fullName = std::string("vortil.graphics.enumstyletypes.") + name;
    EXPECT_TRUE(vcos::COSTypeRepository::getType(COSNameID(fullName.c_str())).getObject());
  }
  EXPECT_EQ(ColorStyle::getInstance(), tables[0].table);
}

}  // namespace
