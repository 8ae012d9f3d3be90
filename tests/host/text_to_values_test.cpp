// Numbers in brackets, read into arrays and scalars.

#include "support/Arrays.h"
#include "support/GlobalLocale.h"

#include <gmock/gmock.h>
#include <gui_objects/convert_from_string_utils.h>
#include <ut/faults.h>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace gui_objects::convert_from_string_utils;
using test::ArrayOwner;
using test::Numbers;
using Dimensions = std::pair<std::size_t, std::size_t>;

/// What `read` gives; none if it throws a ParseException.
template <class Read>
auto resultOf(Read&& read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const ParseException&) {
    return std::nullopt;
  }
}

std::optional<Dimensions> dimensionsOf(const std::string& text) {
  return resultOf([&] { return parse_array_dimensions(text.c_str()); });
}

/// The elements in storage order of a text that is read as what it says it is.
std::optional<Numbers> numbersIn(const std::string& text, vxClassID classID = vxDOUBLE_CLASS) {
  return resultOf([&] {
    const auto [rows, columns] = parse_array_dimensions(text.c_str());
    const ArrayOwner array(parse_mxn(rows, columns, classID, text.c_str()));
    EXPECT_EQ(vxGetClassID(array.get()), classID);
    EXPECT_EQ(test::sizeOf(array.get()), (test::Size{rows, columns}));
    return test::numbersOf(array.get());
  });
}

TEST(TextToValues, RowsOfNumbersStandInBrackets) {
  // clang-format off
  const std::tuple<const char*, Dimensions, Numbers> rows[] = {
      {"[]", {0, 0}, {}},              {" [ ] ", {0, 0}, {}},         {"[1]", {1, 1}, {1}},
      {"[0 1]", {1, 2}, {0, 1}},       {"[0,1]", {1, 2}, {0, 1}},     {" [ 0 , 1 ] ", {1, 2}, {0, 1}},
      {"[1 2, 3]", {1, 3}, {1, 2, 3}}, {"[1;2]", {2, 1}, {1, 2}},     {"[1 2 3 ; 4 5 6]", {2, 3}, {1, 4, 2, 5, 3, 6}},
      {"[0.01 0.025]", {1, 2}, {0.01, 0.025}},                        {"[-Inf 0 Inf]", {1, 3}, {-INFINITY, 0, INFINITY}},
      {"[1e-400 0e999 -1e-99999]", {1, 3}, {0, 0, 0}},
      {"[-1.5e3 2E-2 .5 1e+2 007]", {1, 5}, {-1500, 0.02, 0.5, 100, 7}},
      {"[1.7976931348623157e308 4.9406564584124654e-324]", {1, 2}, {std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}},
  };
  // clang-format on
  for (const auto& [text, dimensions, numbers] : rows) {
    EXPECT_EQ(dimensionsOf(text), dimensions) << text;
    EXPECT_EQ(numbersIn(text), numbers) << text;
  }
  EXPECT_TRUE(std::signbit(numbersIn("[-1e-400]").value().front()));
  EXPECT_THAT(numbersIn("[NaN]").value(), testing::ElementsAre(testing::IsNan()));
}

// clang-format off
constexpr const char* kUnreadable[] = {
    "", " ", "1", "1 2", "[", "]", "[1", "1]", "[1 2", "[1]]", "[[1]]", "[1] 2", "x[1]", "[1][2]", "[1 2; 3]", "[1; 2 3]",
    "[1;]", "[;1]", "[;]", "[1;;2]", "[,]", "[1,]", "[,1]", "[1,,2]", "[nan]", "[NAN]", "[inf]", "[INF]", "[Infinity]",
    "[-NaN]", "[+NaN]", "[+Inf]", "[NaN1]", "[1Inf]", "[nan(1)]", "[--1]", "[+-1]", "[- 1]", "[1-2]", "[1e]", "[e5]",
    "[1.2.3]", "[.]", "[0x10]", "[1f]", "[1i]", "[1 x]", "[true]", "['a']", "{1}", "(1)", "[1e999]", "[-1e999]", "[1_000]"};
// clang-format on

TEST(TextToValues, NothingElseIsRead) {
  for (const char* text : kUnreadable) {
    EXPECT_EQ(dimensionsOf(text), std::nullopt) << text;
    EXPECT_EQ(numbersIn(text), std::nullopt) << text;
  }
  EXPECT_THROW(parse_array_dimensions(nullptr), ParseException);
}

TEST(TextToValues, AnArrayHasAsManyRowsAndColumnsAsItsText) {
  const std::size_t arrays = vghost::liveArrays();
  for (const auto& [rows, columns] : {Dimensions{2, 1}, {1, 3}, {1, 1}, {2, 2}, {0, 0}, {0, 2}})
    EXPECT_THROW(ArrayOwner(parse_mxn(rows, columns, vxDOUBLE_CLASS, "[1 2]")), ParseException)
        << rows << "x" << columns;
  EXPECT_THROW(ArrayOwner(parse_mxn(1, 2, vxDOUBLE_CLASS, "[1 x]")), ParseException);
  EXPECT_EQ(vghost::liveArrays(), arrays);
}

TEST(TextToValues, IntegersSaturateAndRound) {
  test::forEachIntegerClass([]<class T>(vxClassID classID, std::type_identity<T>) {
    const std::string max = std::to_string(std::numeric_limits<T>::max());
    const std::string min = std::to_string(std::numeric_limits<T>::min());
    const auto expectRead = [&](const std::string& text, T number) {
      const ArrayOwner array(parse_mxn(1, 1, classID, ("[" + text + "]").c_str()));
      EXPECT_EQ(*static_cast<const T*>(vxGetData(array.get())), number) << text;
      EXPECT_EQ(vxGetScalar(array.get()), static_cast<double>(number));
    };
    for (const std::string& text : std::vector<std::string>{max, max + "9", "1e30", "Inf"})
      expectRead(text, std::numeric_limits<T>::max());
    for (const std::string& text : std::vector<std::string>{min, "-" + max + "9", "-1e30", "-Inf"})
      expectRead(text, std::numeric_limits<T>::min());
    EXPECT_EQ(numbersIn("[0.4 0.6 1.5 2.5 3.4999 -0.4]", classID), (Numbers{0, 1, 2, 3, 3, 0}));
    EXPECT_EQ(numbersIn("[-0.6]", classID), Numbers{std::is_signed_v<T> ? -1.0 : 0.0});
    EXPECT_EQ(numbersIn("[NaN]", classID), std::nullopt);
  });
  const ArrayOwner array(parse_mxn(1, 1, vxINT64_CLASS, "[9007199254740993]"));
  EXPECT_EQ(*static_cast<const std::int64_t*>(vxGetData(array.get())), 9007199254740993)
      << "a double has no such number";
}

TEST(TextToValues, SinglesAreRoundedAndDoNotOverflow) {
  // The last is just above the middle between two of them, which is where the nearest double lies.
  EXPECT_EQ(numbersIn("[0.1 Inf -Inf 3.4028234e38 1e-46 1e-400 1.0000000596046447753906251]",
                      vxSINGLE_CLASS),
            (Numbers{0.1F, INFINITY, -INFINITY, std::numeric_limits<float>::max(), 0, 0,
                     std::nextafter(1.0F, 2.0F)}));
  EXPECT_EQ(numbersIn("[1e39]", vxSINGLE_CLASS), std::nullopt);
}

TEST(TextToValues, DecimalsAreReadAsTheNearestDoubleWhateverTheirLength) {
  std::mt19937_64 random(5);
  for (int round = 0; round < 100'000; ++round) {
    std::string word(1 + random() % 18, '0');
    for (char& digit : word)
      digit = static_cast<char>('0' + random() % 10);
    if (random() % 4 != 0) word.insert(random() % (word.size() + 1), 1, '.');
    double nearest = 0;
    std::from_chars(word.data(), word.data() + word.size(), nearest);
    EXPECT_EQ(parse_double_scalar(word.c_str()), nearest) << word;
  }
}

TEST(TextToValues, FixedNumbersOfNumbers) {
  using testing::ElementsAre;
  EXPECT_THAT(parse_1x2_double("[1 -2.5]"), ElementsAre(1, -2.5));
  EXPECT_THAT(parse_1x3_double(" [1, 2 Inf]"), ElementsAre(1, 2, INFINITY));
  EXPECT_THAT(parse_1x4_double("[1 2 3 4 ]"), ElementsAre(1, 2, 3, 4));
  for (const char* text : {"", "[]", "[1]", "[1 2 3 4 5]", "[1;2]", "[1 2;3 4]", "[1;2;3]",
                           "[1;2;3;4]", "1 2", "[1 2"}) {
    EXPECT_THROW(parse_1x2_double(text), ParseException) << text;
    EXPECT_THROW(parse_1x3_double(text), ParseException) << text;
    EXPECT_THROW(parse_1x4_double(text), ParseException) << text;
  }
  for (const char* text : {"-2.5", "[-2.5]", " [ -2.5 ] ", " -2.5 "})
    EXPECT_EQ(parse_double_scalar(text), -2.5) << text;
  for (const char* text : {"", "[]", "[1", "1]", "1 2", "[1 2]", "1,", "x", "[[1]]", "[1]1"})
    EXPECT_THROW(parse_double_scalar(text), ParseException) << text;
}

std::string repeated(const char* part, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i)
    text += part;
  return text;
}

TEST(TextToValues, LongTextsTakeLinearTime) {
  constexpr std::size_t kMillion = 1'000'000;
  const auto begin = std::chrono::steady_clock::now();
  for (const char* part : {"[", "]", " ", "9", ",", ";", "[]", "1[", "NaN", "-", "."})
    for (const char* before : {"", "["})
      EXPECT_EQ(dimensionsOf(before + repeated(part, kMillion)), std::nullopt) << part;
  EXPECT_EQ(dimensionsOf("[" + repeated(" ", kMillion) + "]"), (Dimensions{0, 0}));
  EXPECT_EQ(dimensionsOf("[" + repeated("1;", kMillion - 1) + "1]"), (Dimensions{kMillion, 1}));
  EXPECT_EQ(numbersIn("[" + repeated("7 ", kMillion) + "]"), Numbers(kMillion, 7));
  EXPECT_EQ(numbersIn("[0." + repeated("9", kMillion) + "]"), Numbers{1});
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST(TextToValues, TheLocaleOfTheProcessPlaysNoPart) {
  struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const test::GlobalLocale locale(new Commas);
  EXPECT_EQ(numbersIn("[1.5 1234,5]"), (Numbers{1.5, 1234, 5}));
  EXPECT_EQ(numbersIn("[12.6 1,234]", vxINT16_CLASS), (Numbers{13, 1, 234}));
}

TEST(TextToValues, StyleWordsStandInAnyOrderAndTheLongestCounts) {
  const std::pair<const char*, const char*> rows[] = {{"", "||"},
                                                      {"-", "|-|"},
                                                      {"--", "|--|"},
                                                      {"-.", "|-.|"},
                                                      {":", "|:|"},
                                                      {"--.", "|--|."},
                                                      {"-..", "|-.|."},
                                                      {".-", "|-|."},
                                                      {"s", "||s"},
                                                      {"sk", "k||s"},
                                                      {"d-g", "g|-|d"},
                                                      {"square", "||square"},
                                                      {"r:pentagram", "r|:|pentagram"},
                                                      {"hexagramw--", "w|--|hexagram"}};
  for (const auto& [text, parts] : rows) {
    std::string color = "old", line = "old", marker = "old";
    EXPECT_TRUE(stringToColorMarkerLineStyle(text, color, line, marker)) << text;
    EXPECT_EQ(color.append("|").append(line).append("|").append(marker), parts) << text;
  }
  for (const char* text :
       {"---", "-:", "--.o", "ox", "rg", " -", "- ", "none", "squar", "S", "-|", "e"}) {
    std::string part = "old";
    EXPECT_FALSE(stringToColorMarkerLineStyle(text, part, part, part)) << text;
    EXPECT_EQ(part, "old");
  }
  for (const char c : std::string("+o*.xv^><sdph-:rgbcmykw")) {
    std::string part;
    EXPECT_TRUE(stringToColorMarkerLineStyle(std::string(1, c).c_str(), part, part, part)) << c;
  }
}

}  // namespace
