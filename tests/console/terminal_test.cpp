#include <gtest/gtest.h>

#include "text/Nearest.h"
#include "text/Terminal.h"
#include "text/TextDisplay.h"

namespace {

using namespace vgdt;

TEST(Color, IsForTerminalsThatHaveNotRefusedIt) {
  EXPECT_EQ(colorDepth(true, nullptr, "xterm", "truecolor"), ColorDepth::True);
  EXPECT_EQ(colorDepth(true, nullptr, "xterm", "24bit"), ColorDepth::True);
  EXPECT_EQ(colorDepth(true, nullptr, "xterm", nullptr), ColorDepth::Palette);
  EXPECT_EQ(colorDepth(true, "", nullptr, "yes"), ColorDepth::Palette);
  EXPECT_EQ(colorDepth(false, nullptr, "xterm", "truecolor"), ColorDepth::None);
  EXPECT_EQ(colorDepth(true, "1", "xterm", "truecolor"), ColorDepth::None);
  EXPECT_EQ(colorDepth(true, nullptr, "dumb", "truecolor"), ColorDepth::None);
}

TEST(Color, IsTheNearestThatATerminalHas) {
  const std::pair<gui_objects::Color4b, const char*> kCases[] = {
      {{0, 0, 0, 255}, "48;5;16"},        {{255, 255, 255, 255}, "48;5;231"},
      {{255, 128, 0, 255}, "48;5;208"},   {{128, 128, 128, 255}, "48;5;244"},
      {{240, 240, 240, 255}, "48;5;255"}, {{116, 117, 5, 255}, "48;5;100"},
  };
  for (const auto& [color, code] : kCases)
    EXPECT_EQ(Style(ColorDepth::Palette).onColor("a", color),
              "\033[" + std::string(code) + "ma\033[0m");
  EXPECT_EQ(Style(ColorDepth::True).onColor("a", {1, 20, 255, 255}), "\033[48;2;1;20;255ma\033[0m");
  EXPECT_EQ(Style(ColorDepth::None).onColor("a", {1, 20, 255, 255}), "a");
}

TEST(NearestName, IsTwoLettersAwayAtMostAndFewerThanHalf) {
  const std::vector<std::string> names = {"on", "off", "DashDot", "dotted"};
  EXPECT_EQ(nearestName("onn", names), "on");
  EXPECT_EQ(nearestName("OOF", names), "off");
  EXPECT_EQ(nearestName("dashdt", names), "DashDot");
  EXPECT_EQ(nearestName("dahsdot", names), "DashDot");
  EXPECT_EQ(nearestName("dot", names), std::nullopt);
  EXPECT_EQ(nearestName("in", names), std::nullopt);
  EXPECT_EQ(nearestName("", names), std::nullopt);
  EXPECT_EQ(nearestName(std::string(1000000, 'o'), names), std::nullopt);
}

TEST(OneLine, ShowsEscapesForWhatATerminalObeysAndEndsInTime) {
  EXPECT_EQ(onOneLine("a\n\t\r\x1b[1mb\x7f"), "a\\n\\t\\r\\x1b[1mb\\x7f");
  EXPECT_EQ(onOneLine(std::string_view("\0", 1)), "\\x00");
  EXPECT_EQ(onOneLine("\u0085\u061c\u200e\u202e\u2066\u2069\u00a0"),
            "\\u0085\\u061c\\u200e\\u202e\\u2066\\u2069\u00a0");
  EXPECT_EQ(onOneLine("abcdef", 6), "abcdef");
  EXPECT_EQ(onOneLine("abcdefg", 6), "abc...");
  EXPECT_EQ(onOneLine("漢漢漢漢", 6), "漢...");
  EXPECT_EQ(onOneLine("a\x1b\x1b", 8), "a\\x1b...") << "no escape is cut in two";
  EXPECT_EQ(onOneLine("a\x1b\x1b", 9), "a\\x1b\\x1b");
  EXPECT_EQ(onOneLine("\xff", 6), "\uFFFD");
  EXPECT_EQ(padded("漢", 4), "漢  ");
  EXPECT_EQ(displayWidth("\u202e漢e\u0301\n"), 6U + 2 + 1 + 2);
}

}  // namespace
