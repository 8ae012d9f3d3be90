#include "enumerated/PlainRule.h"
#include "support/GlobalLocale.h"

#include <gmock/gmock.h>
#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/EnumCache.h>
#include <graphics/datatype/EnumStringType.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <ut/faults.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vcos/TypedEnumStringType.h>
#include <vx/scopes.h>

#include <cctype>
#include <initializer_list>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using graphics::datatype::EnumBase;
using graphics::datatype::EnumStringType;
using graphics::datatype::utils::EnumCache;
using testing::ElementsAre;
using testing::IsEmpty;
using vcos::ArrayOwner;
using vcos::COSNameID;
using vcos::COSTypeRepository;
using vcos::COSValue;

/// A table with these names and the values 10, 11, 12, ...
struct Table : EnumStringType {
  Table(std::initializer_list<const char*> names) : EnumStringType("Test") {
    for (const char* name : names)
      addEnumValue(name, 10 + static_cast<int>(getEnumLength()));
  }
};

/// The name that a text stands for; "" for none.
std::string found(const EnumStringType& table, const char* text) {
  const COSValue value = table.getEnumValue(text);
  EXPECT_EQ(table.isValidEnumName(text), !value.isNull()) << text;
  return value.isNull() ? "" : table.getEnumString(value);
}

vcos::COSDataType* hostTypeOf(const char* table) {
  const std::string name = std::string("vortil.graphics.enumstyletypes.") + table;
  return COSTypeRepository::getType(COSNameID(name.c_str())).getObject();
}

TEST(EnumTable, TrimsWhatTheGlobalLocaleCallsWhiteSpaceInTheLoweredText) {
  const Table table = {"auto", "manual"};
  const auto find = [&] {
    std::vector<std::string> names;
    for (const char* text : {" \t\n\v\f\rAuto \t\n\v\f\r", "__Auto_", "qAUTOQ", "aut!", "au to"})
      names.push_back(found(table, text));
    return names;
  };
  EXPECT_THAT(find(), ElementsAre("auto", "", "", "", ""));
  {
    const test::GlobalLocale locale(new test::OddCharacters);
    EXPECT_THAT(find(), ElementsAre("", "auto", "auto", "", ""));
  }
  EXPECT_THAT(find(), ElementsAre("auto", "", "", "", ""));
}

TEST(EnumTable, KeepsNamesOnceAndInLowerCase) {
  EnumStringType table("Test");
  table.addEnumValue("AUTO", 3);
  table.addEnumValue("auto", 7);
  table.addEnumValue("Below", -1);
  table.addEnumValue("bElow", 8);
  EXPECT_EQ(table.getEnumLength(), 2U);
  EXPECT_THAT(table.getEnumStrings(), ElementsAre("auto", "below"));
  EXPECT_STREQ(table.getEnumString(COSValue::fromInteger(3)), "auto");
  EXPECT_EQ(table.getEnumString(COSValue::fromInteger(7)), nullptr);
  EXPECT_EQ(table.getEnumValue("B").bits(), ~std::uint64_t{0});
  EXPECT_STREQ(table.getEnumString(COSValue::fromInteger(-1)), "below");
}

TEST(EnumTable, DoesNotKeepANameThatTheHostRefuses) {
  Table table = {"one"};
  vghost::faults::failHostCall(1, vghost::faults::Repeat::Once);
  EXPECT_ANY_THROW(table.addEnumValue("two", 2));
  vghost::faults::disarm();
  EXPECT_THAT(table.getEnumStrings(), ElementsAre("one"));
  EXPECT_EQ(found(table, "t"), "");
  table.addEnumValue("two", 2);
  EXPECT_EQ(found(table, "t"), "two");
}

TEST(EnumTable, AsksTheHostForAmbiguityAndVisibility) {
  const Table table = {"auto", "automatic", "manual"};
  EXPECT_FALSE(table.isValidEnumName(nullptr));
  EXPECT_TRUE(table.isEnumNameAmbiguous("AU"));
  for (const char* text : {"auto", "AUTO", " au", "m", "x"})
    EXPECT_FALSE(table.isEnumNameAmbiguous(text)) << text;
  EXPECT_TRUE(table.getEnumVisibility("auto"));
  for (const char* text : {"AUTO", " auto", "man"})
    EXPECT_FALSE(table.getEnumVisibility(text)) << text;
  EXPECT_TRUE(table.isPossibleValuesFinite());
}

TEST(EnumTable, ASecondOneOfANameSharesTheHostTypeAndFindsNothing) {
  {
    const Table first = {"auto", "manual"};
    const auto* host = hostTypeOf("Test");
    ASSERT_NE(host, nullptr);
    {
      const Table second = {"auto", "MANUAL"};
      EXPECT_EQ(second.getEnumLength(), 2U);
      EXPECT_STREQ(second.getEnumString(COSValue::fromInteger(11)), "manual");
      EXPECT_THAT(second.getEnumStrings(), IsEmpty());
      EXPECT_EQ(found(second, "auto"), "");
    }
    EXPECT_EQ(hostTypeOf("Test"), host);
    EXPECT_EQ(found(first, "m"), "manual");
  }
  EXPECT_EQ(hostTypeOf("Test"), nullptr);
}

TEST(EnumTable, StaysEmptyWhereAnotherKindOfTypeHasItsName) {
  const COSNameID name("vortil.graphics.enumstyletypes.Test");
  auto* other = graphics::datatype::OnOffBooleanDataType::getType();
  COSTypeRepository::addType(name, other);
  {
    const Table table = {"auto", "manual"};
    EXPECT_TRUE(table.getEnumLength() == 0 && table.getEnumStrings().empty());
    EXPECT_EQ(found(table, "auto"), "");
    EXPECT_EQ(table.getEnumString(COSValue::fromInteger(10)), nullptr);
    EXPECT_FALSE(table.isEnumNameAmbiguous("a") || table.getEnumVisibility("auto"));
    struct Heir : EnumStringType {
      using EnumStringType::EnumStringType;
      const char* getEnumFromPartialMatch(std::string) const override { return "auto"; }
    };
    EXPECT_EQ(Heir("Test").findEnumValue("auto"), std::nullopt);
  }
  EXPECT_EQ(hostTypeOf("Test"), other);
  COSTypeRepository::removeType(name);
}

TEST(EnumTable, LetsAnHeirSayWhatATextStandsFor) {
  struct Heir : EnumStringType {
    Heir() : EnumStringType("Test") { addEnumValue("auto", 1); }
    const char* getEnumFromPartialMatch(std::string name) const override {
      return name == "otto mat" ? "auto" : "not a name";
    }
  };
  const Heir table;
  EXPECT_EQ(found(table, " Otto Mat\t"), "auto");
  EXPECT_EQ(found(table, "auto"), "");
  EXPECT_EQ(table.findEnumValue("otto mat"), COSValue::fromInteger(1));
  EXPECT_EQ(table.findEnumValue("auto"), std::nullopt);
}

TEST(EnumTable, FindsWhatLookingAtAllNamesFinds) {
  // Characters of one residue by 64, the case of a letter, and bytes above 127 among them.
  constexpr std::string_view kAlphabet = "!aA@bB\x80\xC0\xE1- ";
  std::mt19937 random(7);
  const auto randomText = [&](std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& c : text)
      c = kAlphabet[random() % kAlphabet.size()];
    return text;
  };
  for (const std::size_t size : {0U, 1U, 2U, 3U, 10U, 80U, 300U}) {
    for (int round = 0; round < 20; ++round) {
      EnumStringType table("Test");
      for (std::size_t i = 0; i < size; ++i)
        table.addEnumValue(randomText(5).c_str(), static_cast<int>(i + 1));
      const auto& strings = table.getEnumStrings();
      const std::vector<std::string_view> names(strings.begin(), strings.end());
      for (int i = 0; i < 500; ++i) {
        std::string text = randomText(4);
        const std::string given = text;
        for (char& c : text)
          c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const auto match = test::plainMatch(names, text);
        const char* name = table.getEnumFromPartialMatch(text);
        ASSERT_EQ(name ? name : "none", match ? std::string(names[*match]) : "none") << text;

        const std::size_t first = text.find_first_not_of(' ');
        if (first != 0) text = first == text.npos ? "" : text.substr(first);
        text.erase(text.find_last_not_of(' ') + 1);
        ASSERT_EQ(table.isValidEnumName(given.c_str()), test::plainMatch(names, text).has_value())
            << given;
      }
    }
  }
}

TEST(EnumCache, KeepsNamesBeyondTheScopeInWhichTheyWereMadeAndNoLongerThanItself) {
  const Table table = {"auto", "manual"};
  const struct : EnumBase {
    int getIntValue() const override { return 11; }
  } manual;
  const std::size_t before = vghost::liveArrays();
  {
    EnumCache cache(table);
    const auto name = [&] { return cache.getVxArrayStringFor(COSValue::fromPointer(&manual)); };
    vxArrayListContext* context = vxEnterNewArrayListContext();
    name();  // left to the context
    vxExitArrayListContext(context, nullptr, 0, true);
    EXPECT_EQ(vxArrayToStdString(ArrayOwner(name()).get()), "manual");
    EXPECT_EQ(vghost::liveArrays(), before + 1);
  }
  EXPECT_EQ(vghost::liveArrays(), before);
}

}  // namespace
