#include "support/ChildProcess.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/exceptions.h>
#include <ut/console.h>

#include <string>
#include <vector>

namespace {

using graphics::datatype::AmbiguousNameException;
using graphics::datatype::ColorNameTable;
using graphics::datatype::MissingNameException;
using testing::ElementsAre;

/// Three numbers, "missing", or "ambiguous" with the host's console saying so.
std::string lookUp(const ColorNameTable& table, const std::string& text) {
  const vghost::ConsoleCapture console;
  try {
    const auto [red, green, blue] = table.getColorValue(text.c_str());
    EXPECT_TRUE(table.isNameInTable(text.c_str())) << text;
    EXPECT_THAT(console.lines(), ElementsAre());
    return testing::PrintToString(std::vector{red, green, blue});
  } catch (const MissingNameException&) {
    EXPECT_FALSE(table.isNameInTable(text.c_str())) << text;
    EXPECT_THAT(console.lines(), ElementsAre());
    return "missing";
  } catch (const AmbiguousNameException&) {
    EXPECT_TRUE(table.isNameInTable(text.c_str())) << text;
    EXPECT_THAT(
        console.lines(),
        ElementsAre("graphics::datatype::ColorNameTable::getColorValue ambiguous name: " + text));
    return "ambiguous";
  }
}

struct LookUp {
  const char* text;
  const char* result;
};

void expectLookUps(const ColorNameTable& table, const std::vector<LookUp>& rows) {
  for (const auto& [text, result] : rows)
    EXPECT_EQ(lookUp(table, text), result) << text;
}

constexpr const char* kBlack = "{ 0, 0, 0 }";
constexpr const char* kWhite = "{ 1, 1, 1 }";
constexpr const char* kRed = "{ 1, 0, 0 }";
constexpr const char* kGreen = "{ 0, 1, 0 }";
constexpr const char* kBlue = "{ 0, 0, 1 }";

TEST(ColorNames, AreFoundByWhatBeginsOneOfThemOrEqualsIt) {
  const ColorNameTable table;
  expectLookUps(table, {{"b", kBlue},
                        {"bl", "ambiguous"},
                        {"bla", kBlack},
                        {"BLA", kBlack},
                        {"blu", kBlue},
                        {"g", kGreen},
                        {"gr", "ambiguous"},
                        {"gra", "{ 0.5, 0.5, 0.5 }"},
                        {"gre", kGreen},
                        {"w", kWhite},
                        {"wh", kWhite},
                        {"k", kBlack},
                        {"r", kRed},
                        {"y", "{ 1, 1, 0 }"},
                        {"m", "{ 1, 0, 1 }"},
                        {"c", "{ 0, 1, 1 }"},
                        {"d", "{ 0.2, 0.2, 0.2 }"},
                        {"Magenta", "{ 1, 0, 1 }"},
                        {"grey", "missing"},
                        {" red", "missing"},
                        {"red ", "missing"},
                        {"redder", "missing"},
                        {"", "ambiguous"},
                        {"z", "missing"},
                        {"\xff", "missing"},
                        {"%s%n", "missing"}});
  EXPECT_THAT(table.getNames(),
              ElementsAre("b", "black", "blue", "cyan", "defaultaxesboxcolor", "g", "gray", "green",
                          "k", "magenta", "red", "w", "white", "yellow"));
  std::string channels;
  for (const auto& [red, green, blue] : table.getColors())
    channels += testing::PrintToString(std::vector{red, green, blue});
  EXPECT_EQ(channels,
            "{ 0, 0, 1 }{ 0, 0, 0 }{ 0, 0, 1 }{ 0, 1, 1 }{ 0.2, 0.2, 0.2 }{ 0, 1, 0 }"
            "{ 0.5, 0.5, 0.5 }{ 0, 1, 0 }{ 0, 0, 0 }{ 1, 0, 1 }{ 1, 0, 0 }{ 1, 1, 1 }{ 1, 1, 1 }"
            "{ 1, 1, 0 }");
  EXPECT_FALSE(table.isNameInTable(nullptr));
  EXPECT_THROW(table.getColorValue(nullptr), MissingNameException);
}

TEST(ColorNames, ThatAreAddedMakeAndBreakAmbiguity) {
  ColorNameTable table;
  const auto add = [&table](const char* name, bool overwrite = false) {
    table.addNamedColor(name, 7, -7, 0, overwrite);
  };
  constexpr const char* kAdded = "{ 7, -7, 0 }";
  // A name that begins one of the table is refused; one that a name of the table begins is not.
  for (const char* name : {"red", "gra", "defaultaxes", "Blue", ""})
    EXPECT_EQ(test::identifierRaisedBy([&] { add(name); }),
              "VORTIL:datatypes:colornametable:AddNameColor")
        << name;
  EXPECT_THAT(test::lastError().text,
              testing::StartsWith("ColorNameTable::addNamedColor, color name:  is already used in "
                                  "the color table."));
  EXPECT_EQ(table.getNames().size(), 14U);
  for (const char* name : {"grey", "blacker", "redish", "%s%n%"})
    add(name);
  expectLookUps(table, {{"grey", kAdded},
                        {"gre", "ambiguous"},
                        {"black", kBlack},
                        {"blac", "ambiguous"},
                        {"blacke", kAdded},
                        {"red", kRed},
                        {"r", "ambiguous"},
                        {"%", kAdded}});
  add("%s%d", true);
  expectLookUps(table, {{"%s", "ambiguous"}});
  // Names are never folded: one with a capital letter is listed and cannot be found.
  for (const char* name : {"red", "Pink", "Blue", "bl"})
    add(name, true);
  expectLookUps(
      table,
      {{"red", kAdded}, {"pink", "missing"}, {"Pink", "missing"}, {"blue", kBlue}, {"bl", kAdded}});
  EXPECT_THAT(table.getNames(), testing::IsSupersetOf({"Pink", "Blue", "blue", "bl"}));
  table.reset();
  expectLookUps(table, {{"bl", "ambiguous"}, {"r", kRed}, {"grey", "missing"}});
  EXPECT_EQ(table.getColorMap().size(), 14U);
}

}  // namespace
