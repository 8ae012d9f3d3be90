#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/exceptions.h>
#include <ut/console.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using graphics::datatype::AmbiguousNameException;
using graphics::datatype::ColorNameTable;
using graphics::datatype::MissingNameException;
using testing::ElementsAre;

std::string numbersOf(const ColorNameTable::ColorValue& color) {
  return testing::PrintToString(std::vector{color.red, color.green, color.blue});
}

/// Three numbers, "missing", or "ambiguous" with the host's console saying so.
std::string lookUp(const ColorNameTable& table, const std::string& text) {
  const vghost::ConsoleCapture console;
  try {
    const ColorNameTable::ColorValue color = table.getColorValue(text.c_str());
    EXPECT_TRUE(table.isNameInTable(text.c_str())) << text;
    EXPECT_THAT(console.lines(), ElementsAre());
    return numbersOf(color);
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

using LookUps = std::vector<std::pair<const char*, std::vector<const char*>>>;

/// The texts behind each result.
void expectLookUps(const ColorNameTable& table, const LookUps& rows) {
  for (const auto& [result, texts] : rows)
    for (const char* text : texts)
      EXPECT_EQ(lookUp(table, text), result) << text;
}

TEST(ColorNames, AreFoundByWhatBeginsOneOfThemOrEqualsIt) {
  const ColorNameTable table;
  expectLookUps(table, {{"{ 0, 0, 1 }", {"b", "blu"}},
                        {"{ 0, 0, 0 }", {"bla", "BLA", "k"}},
                        {"{ 0, 1, 0 }", {"g", "gre"}},
                        {"{ 0.5, 0.5, 0.5 }", {"gra"}},
                        {"{ 1, 1, 1 }", {"w", "wh"}},
                        {"{ 1, 0, 0 }", {"r"}},
                        {"{ 1, 1, 0 }", {"y"}},
                        {"{ 1, 0, 1 }", {"m", "Magenta"}},
                        {"{ 0, 1, 1 }", {"c"}},
                        {"{ 0.2, 0.2, 0.2 }", {"d"}},
                        {"ambiguous", {"bl", "Gr", ""}},
                        {"missing", {"grey", " red", "red ", "redder", "z", "\xff", "%s%n"}}});
  std::string all;
  const std::vector<ColorNameTable::ColorValue> colors = table.getColors();
  for (std::size_t i = 0; i < colors.size(); ++i)
    all += table.getNames().at(i) + numbersOf(colors[i]);
  EXPECT_EQ(all,
            "b{ 0, 0, 1 }black{ 0, 0, 0 }blue{ 0, 0, 1 }cyan{ 0, 1, 1 }"
            "defaultaxesboxcolor{ 0.2, 0.2, 0.2 }g{ 0, 1, 0 }gray{ 0.5, 0.5, 0.5 }green{ 0, 1, 0 }"
            "k{ 0, 0, 0 }magenta{ 1, 0, 1 }red{ 1, 0, 0 }w{ 1, 1, 1 }white{ 1, 1, 1 }"
            "yellow{ 1, 1, 0 }");
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
  for (const char* name : {"red", "gra", "defaultaxes", "", "Blue"})
    EXPECT_EQ(test::identifierRaisedBy([&] { add(name); }),
              "VORTIL:datatypes:colornametable:AddNameColor")
        << name;
  EXPECT_THAT(
      test::lastError().text,
      testing::StartsWith("ColorNameTable::addNamedColor, color name: Blue is already used in "
                          "the color table."));
  EXPECT_EQ(table.getNames().size(), 14U);
  for (const char* name : {"grey", "blacker", "redish", "%s%n%"})
    add(name);
  expectLookUps(table, {{kAdded, {"grey", "blacke", "%"}},
                        {"{ 0, 0, 0 }", {"black"}},
                        {"{ 1, 0, 0 }", {"red"}},
                        {"ambiguous", {"gre", "blac", "r"}}});
  // Names are never folded: one with a capital letter is listed and cannot be found.
  for (const char* name : {"red", "Pink", "Blue", "bl", "%s%d"})
    add(name, true);
  expectLookUps(table, {{kAdded, {"red", "bl"}},
                        {"{ 0, 0, 1 }", {"blue"}},
                        {"missing", {"pink", "Pink"}},
                        {"ambiguous", {"%s"}}});
  EXPECT_THAT(table.getNames(), testing::IsSupersetOf({"Pink", "Blue", "blue", "bl"}));
  table.reset();
  expectLookUps(table, {{"ambiguous", {"bl"}}, {"{ 1, 0, 0 }", {"r"}}, {"missing", {"grey"}}});
  EXPECT_EQ(table.getColorMap().size(), 14U);
}

}  // namespace
