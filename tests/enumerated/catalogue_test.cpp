// What holds for each of the enumerated types beside what all types have in common.

#include "enumerated/PlainRule.h"
#include "registry/EnumeratedTypes.h"
#include "support/Arrays.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/MessageCatalog.h>
#include <messages/catalog.h>
#include <messages/translation.h>
#include <ut/memory.h>
#include <vcos/TypeAccess.h>
#include <vcos/TypedEnumStringType.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace {

using namespace component_VORTIL::catalog_datatypes;
using test::EnumeratedType;
using test::kEnumeratedTypes;
using vcos::ArrayOwner;
using vcos::COSNameID;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

/// The number of a value, which ends here.
int takeNumber(const TypeAccess& access, COSValue word) {
  const OwnedValue value(access.dataType(), word);
  return word.asPointer<const graphics::datatype::EnumBase>()->getIntValue();
}

/// Expects that `work` raises a message, with these arguments in this order.
template <class Work>
void expectRaised(const resource_core::BaseMsgID& message, Work&& work) {
  EXPECT_EQ(test::identifierRaisedBy(work), message.definition().identifier);
  EXPECT_EQ(test::lastError().text, vghost::messages::text(message, vghost::messages::locale()));
}

class Catalogue : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  template <class Check>
  static void forEachType(Check&& check) {
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t blocks = vghost::liveBlocks();
    for (const EnumeratedType& type : kEnumeratedTypes) {
      SCOPED_TRACE(type.name);
      const std::string name = "vortil.graphics.datatype." + type.name;
      const auto access = TypeAccess::find(COSNameID(name.c_str()));
      ASSERT_TRUE(access);
      check(type, *access);
    }
    EXPECT_EQ(vghost::liveArrays(), arrays);
    EXPECT_EQ(vghost::liveBlocks(), blocks);
  }
};

TEST_F(Catalogue, TypesListTheirValuesInOrderAndGiveThemAway) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access) {
    test::NamesAndValues listed;
    for (auto values = access.dataType().getPossibleValues(); values.hasMoreElements();) {
      const COSValue value = values.nextElement();
      const std::string name = access.toText(value).value_or("null");
      listed.emplace_back(name, takeNumber(access, value));
    }
    EXPECT_EQ(listed, expected.names);

    const auto host =
        vcos::COSTypeRepository::getType(COSNameID(expected.tableName().c_str())).getObject();
    const auto* table = dynamic_cast<const vcos::TypedEnumStringType*>(host);
    ASSERT_NE(table, nullptr) << expected.tableName();
    EXPECT_EQ(table->getEnumLength(), expected.names.size());
    EXPECT_EQ(table->getSizeInBits(), 32U) << "built on uint32 scalar";
  });
}

/// The beginnings of all names, each with one character more, and the names in upper case with
/// space around them.
std::vector<std::string> textsFor(const EnumeratedType& type) {
  std::vector<std::string> texts;
  for (const auto& [name, number] : type.names) {
    for (std::size_t length = 0; length <= name.size(); ++length)
      texts.push_back(name.substr(0, length));
    texts.push_back(name + "!");
    texts.push_back(" \t" + name + "\n ");
    for (char& c : texts.back())
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return texts;
}

/// What the type looks for when it is given a text.
std::string plain(std::string text) {
  std::erase_if(text, [](unsigned char c) { return std::isspace(c); });
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

TEST_F(Catalogue, EveryBeginningOfANameIsTakenIfItIsOfOneNameOnly) {
  forEachType([](const EnumeratedType& expected, const TypeAccess& access) {
    std::vector<std::string_view> names;
    for (const auto& [name, number] : expected.names)
      names.emplace_back(name);
    for (const std::string& text : textsFor(expected)) {
      SCOPED_TRACE(text);
      const ArrayOwner array(vxCreateString(text.c_str()));
      if (const auto match = test::plainMatch(names, plain(text))) {
        EXPECT_EQ(takeNumber(access, access.fromText(text.c_str())), expected.names[*match].second);
        const OwnedValue value(access.dataType(), access.fromArray(array.get()));
        EXPECT_EQ(access.toText(value.get()), names[*match]);
        continue;
      }
      const key_InvalidEnumValue refusal(text, expected.name);
      expectRaised(refusal, [&] { static_cast<void>(access.fromText(text.c_str())); });
      if (!text.empty()) expectRaised(refusal, [&] { access.fromArray(array.get()); });
    }
  });
}

TEST_F(Catalogue, EveryNameHasALabelThatTheTypeTakes) {
  for (const char* locale : {"en", "de"}) {
    const auto labels = fl::i18n::MessageCatalog::openCatalog("VORTIL::vgdatatypes::vgdatatypes",
                                                              fl::i18n::VwLocale(locale));
    forEachType([&](const EnumeratedType& expected, const TypeAccess& access) {
      for (const auto& [name, number] : expected.names) {
        const std::string key = "vortil_graphics_datatype_" + expected.name + "_" + name;
        const fl::ustring text = labels->lookup(key.c_str());
        const std::string label = fl::i18n::to_utf8(text.data(), text.size());
        EXPECT_EQ(takeNumber(access, access.fromText(label.c_str())), number) << label;
        EXPECT_NE(label[0], 'I') << "its small letter is not \"i\" in every language";
      }
    });
  }
}

TEST_F(Catalogue, OnlyTextIsTakenFromArrays) {
  std::vector<ArrayOwner> noText;
  for (const char* words :
       {"1x1 double", "1x1 cell", "1x1 logical", "1x1 struct", "0x0 double", "1x2 uint8"})
    noText.push_back(test::array(words));
  noText.emplace_back(vxCreateFunctionHandle("none"));
  vxSetCell(noText[1].get(), 0, vxCreateString("none"));
  const std::size_t noRows[] = {0, 4, 2};
  const ArrayOwner empty[] = {ArrayOwner(vxCreateCharArray(3, noRows)),
                              ArrayOwner(vxCreateString(""))};
  forEachType([&](const EnumeratedType& expected, const TypeAccess& access) {
    for (const ArrayOwner& array : noText)
      expectRaised(key_InvalidEnumValueFor(expected.name), [&] { access.fromArray(array.get()); });
    for (const ArrayOwner& array : empty)
      expectRaised(key_InvalidValue(expected.name), [&] { access.fromArray(array.get()); });
  });
  const auto onOff = TypeAccess::find(COSNameID("vortil.graphics.datatype.on_off")).value();
  for (const ArrayOwner& array : noText)
    EXPECT_EQ(test::identifierRaisedBy([&] { onOff.fromArray(array.get()); }),
              "VORTIL:datatypes:onoffboolean:IncorrectValue");
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
    test::NamesAndValues listed;
    for (const std::string& own : table->getEnumStrings()) {
      const COSValue value = table->getEnumValue(own.c_str());
      listed.emplace_back(table->getEnumString(value), value.asInteger<int>());
    }
    EXPECT_EQ(listed, names);
    const std::string fullName = std::string("vortil.graphics.enumstyletypes.") + name;
    EXPECT_TRUE(vcos::COSTypeRepository::getType(COSNameID(fullName.c_str())).getObject());
  }
  EXPECT_EQ(ColorStyle::getInstance(), tables[0].table);
}

}  // namespace
