#include <gtest/gtest.h>

#include "text/Nearest.h"
#include "text/Terminal.h"
#include "text/TextDisplay.h"

namespace {

using namespace vgdt;

TEST(Colour, IsForTerminalsThatHaveNotRefusedIt) {
  EXPECT_TRUE(wantsColour(true, nullptr, "xterm"));
  EXPECT_TRUE(wantsColour(true, "", nullptr));
  EXPECT_FALSE(wantsColour(false, nullptr, "xterm"));
  EXPECT_FALSE(wantsColour(true, "1", "xterm"));
  EXPECT_FALSE(wantsColour(true, nullptr, "dumb"));
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

TEST(OneLine, HasNoControlCharactersAndEndsInTime) {
  EXPECT_EQ(onOneLine("a\n\x1b[1mb\x7f", 20), "a  [1mb ");
  EXPECT_EQ(onOneLine("abcdef", 6), "abcdef");
  EXPECT_EQ(onOneLine("abcdefg", 6), "abc...");
  EXPECT_EQ(onOneLine("漢漢漢漢", 6), "漢...");
  EXPECT_EQ(onOneLine("\xff", 6), "\uFFFD");
  EXPECT_EQ(padded("漢", 4), "漢  ");
}

}  // namespace
