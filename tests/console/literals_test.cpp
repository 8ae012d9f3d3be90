#include <gmock/gmock.h>

#include "Values.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "requests/JsonForms.h"
#include "support/HostError.h"
#include "text/TextDisplay.h"

#include <sstream>

namespace {

using namespace vgdt;
using namespace std::string_literals;
using testing::HasSubstr;

std::string repeated(const std::string& text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i)
    result += text;
  return result;
}

std::string jsonOfLiteral(const std::string& literal) {
  const ArrayScope scope;
  std::ostringstream json;
  JsonWriter writer(json);
  writeArray(writer, parseLiteral(literal).get());
  writer.flush();
  return json.str();
}

/// Cases that have the first text in common.
using Groups = std::vector<std::pair<std::string, std::vector<std::string>>>;

/// Literals of arrays of each class: "literal -> dimensions elements".
const Groups kGoodCases = {
    {"double",
     {"1.5 -> [1,1] [1.5]", "-3 -> [1,1] [-3]", " +.5e-1  -> [1,1] [0.05]", "1e5 -> [1,1] [100000]",
      "1. -> [1,1] [1]", "0.1 -> [1,1] [0.1]", "-0 -> [1,1] [-0.0]", "1e300 -> [1,1] [1e+300]",
      "5e-324 -> [1,1] [5e-324]", "9007199254740993 -> [1,1] [9.007199254740992e+15]",
      R"(1e999 -> [1,1] ["Inf"])", R"(-1e999 -> [1,1] ["-Inf"])", "1e-999 -> [1,1] [0]",
      R"(NaN -> [1,1] ["NaN"])", R"(-Inf -> [1,1] ["-Inf"])", "double(true) -> [1,1] [1]",
      "ones ( 1e0 , 1 ) -> [1,1] [1]"}},
    {"double",
     {"[1 2; 3 4] -> [2,2] [1,3,2,4]", "[ 1 , 2\n;\t3,4 ] -> [2,2] [1,3,2,4]",
      "[1 -2] -> [1,2] [1,-2]", "[true 2] -> [1,2] [1,2]", "[] -> [0,0] []", "2:4 -> [1,3] [2,3,4]",
      "0.5 : 2 -> [1,2] [0.5,1.5]", "0.1:3.1 -> [1,4] [0.1,1.1,2.1,3.1]", "3:1 -> [1,0] []",
      "[1:2; 3:4] -> [2,2] [1,3,2,4]", "[0 1:3] -> [1,4] [0,1,2,3]", "zeros(2) -> [2,2] [0,0,0,0]",
      "reshape([1 2;3 4],1,4) -> [1,4] [1,3,2,4]",
      R"(complex([1 2],[-1 0.5]) -> [1,2] [1,2],"imag":[-1,0.5])",
      R"(complex(zeros(2,0),zeros(2,0)) -> [2,0] [],"imag":[])",
      R"(sparse([1 0;0 1]) -> [2,2] [1,0,0,1],"sparse":true)"}},
    {"logical",
     {"true -> [1,1] [true]", "[true false] -> [1,2] [true,false]",
      "logical([0 2]) -> [1,2] [false,true]", "zeros(0,'logical') -> [0,0] []",
      R"(logical(sparse([2 0])) -> [1,2] [true,false],"sparse":true)"}},
    {"int8",
     {"int8([0.5 -0.5 2.5 127.5 -200 NaN Inf]) -> [1,7] [1,-1,3,127,-128,0,127]",
      "zeros(1,0,'int8') -> [1,0] []"}},
    {"uint8", {"uint8([-1 255.4 256]) -> [1,3] [0,255,255]"}},
    {"int16", {R"(int16(complex(1.5,2.5)) -> [1,1] [2],"imag":[3])"}},
    {"uint16", {"ones(1,2,2,'uint16') -> [1,2,2] [1,1,1,1]"}},
    {"int32", {"int32(NaN) -> [1,1] [0]", "int32('ab') -> [1,2] [97,98]"}},
    {"int64",
     {"int64([9007199254740993 -9007199254740993]) -> [1,2] [9007199254740992,-9007199254740992]",
      "int64([-9223372036854775808; 9223372036854775808]) -> [2,1] "
      "[-9223372036854775808,9223372036854775807]",
      "int64(uint64(18446744073709551615)) -> [1,1] [9223372036854775807]"}},
    {"uint64",
     {"uint64([18446744073709551615 -9007199254740993]) -> [1,2] [18446744073709551615,0]",
      "uint64(int64(-1)) -> [1,1] [0]"}},
    {"single", {"single(0.1) -> [1,1] [0.1]", R"(single(-Inf) -> [1,1] ["-Inf"])"}},
    {"char",
     {R"('on' -> [1,2] ["on"])", "'' -> [0,0] []", R"('it''s' -> [1,4] ["it's"])",
      R"('''' -> [1,1] ["'"])", "'a;]% \t' -> [1,6] [\"a;]% \\t\"]", R"('é😀' -> [1,3] ["é😀"])",
      "'\xff' -> [1,1] [\"\uFFFD\"]", R"(['ab';'cd'] -> [2,2] ["ab","cd"])",
      R"(['a' 'b';'cd'] -> [2,2] ["ab","cd"])", "['';''] -> [0,0] []",
      "char([55296 65]) -> [1,2] [\"\uFFFDA\"]", R"(char([72 105]) -> [1,2] ["Hi"])",
      "'a\0\n' -> [1,3] [\"a\\u0000\\n\"]"s}},
    {"cell", {"{} -> [0,0] []", "cell(0,2) -> [0,2] []", "cell(1,2) -> [1,2] [null,null]"}},
    {"handle", {"empty_handle -> [0,0] []"}}};

const std::pair<const char*, const char*> kOtherCases[] = {
    {"reshape('abcd',1,2,2)", R"({"class":"char","dims":[1,2,2],"data":"abcd"})"},
    {"{1, 'a'; {} -2}",
     R"({"class":"cell","dims":[2,2],"data":[{"class":"double","dims":[1,1],"data":[1]},)"
     R"({"class":"cell","dims":[0,0],"data":[]},{"class":"char","dims":[1,1],"rows":["a"]},)"
     R"({"class":"double","dims":[1,1],"data":[-2]}]})"},
    {"reshape({1,2},1,1,2)",
     R"({"class":"cell","dims":[1,1,2],"data":[{"class":"double","dims":[1,1],"data":[1]},)"
     R"({"class":"double","dims":[1,1],"data":[2]}]})"},
    {"struct('b',1,'a',{true})",
     R"({"class":"struct","dims":[1,1],"fields":{"b":{"class":"double","dims":[1,1],"data":[1]},)"
     R"("a":{"class":"cell","dims":[1,1],"data":[)"
     R"({"class":"logical","dims":[1,1],"data":[true]}]}}})"},
    {"struct()", R"({"class":"struct","dims":[1,1],"fields":{}})"},
    {"@a_1.b", R"({"class":"function_handle","dims":[1,1],"text":"a_1.b"})"}};

void expectJsonAndBack(const std::string& literal, const std::string& json) {
  EXPECT_EQ(jsonOfLiteral(literal), json) << literal;
  const ArrayScope scope;
  const std::string printed = formatLiteral(parseLiteral(literal).get());
  EXPECT_EQ(jsonOfLiteral(printed), json) << printed;
}

TEST(Literal, BecomesTheArrayThatItDescribesAndPrintsSoThatItReadsBack) {
  for (const auto& [className, cases] : kGoodCases)
    for (std::string text : cases) {
      const std::string elements = className == "char" ? R"(,"rows":)" : R"(,"data":)";
      const std::string literal = text.substr(0, text.find(" -> "));
      text.erase(0, literal.size() + 4).replace(text.find(' '), 1, elements);
      expectJsonAndBack(literal, R"({"class":")" + className + R"(","dims":)" + text + "}");
    }
  for (const auto& [literal, json] : kOtherCases)
    expectJsonAndBack(literal, json);
}

/// Takes the '^' out of a text and returns where it stood.
std::size_t takeMark(std::string& text) {
  const std::size_t position = text.find('^');
  text.erase(position, 1);
  return position;
}

void expectRefusal(const std::string& literal, std::size_t position, const std::string& problem) {
  const std::size_t arrays = vghost::liveArrays();
  try {
    parseLiteral(literal);
    ADD_FAILURE() << "accepted: " << literal;
  } catch (const LiteralError& error) {
    EXPECT_EQ(error.position(), position) << literal;
    EXPECT_THAT(error.what(), HasSubstr(problem)) << literal;
  }
  EXPECT_EQ(vghost::liveArrays(), arrays) << literal;
}

/// What is wrong with some literals, each with a '^' at the place that is wrong.
const Groups kBadCases = {
    {"expected a value", {"^", "  ^", "^--1", "int8(1,^", "{1,^,2}"}},
    {"end", {"1 ^2", "1^e", "1:2^:3", "1^\n"}},
    {"range", {"1:^x"}},
    {"NaN", {"^NaN:3", "logical(^[0 NaN])"}},
    {"quote", {"'ab^", "'a''^"}},
    {"'on'", {"^on"}},
    {"truely", {"^truely"}},
    {"name", {"@^"}},
    {"foo", {"^foo(1)"}},
    {"expected (", {"int8 ^1"}},
    {"comma or )", {"int8(1^"}},
    {"]", {"[1 2^", "[1 ^- 2]", "[1^-2]"}},
    {"expected a number", {"[1,^]", "[1;^]", "[^,1]", "[^[1]]", "[^{1}]"}},
    {"length", {"[1 2; ^3]", "['ab';^'c']", "{1, 'a', struct('b', {2, [3 4; ^5]})}"}},
    {"mix", {"[1 ^'a']", "['a' ^true]"}},
    {"}", {"{1^"}},
    {"elements", {"{1;^2,3}"}},
    {"size",
     {"^zeros()", "^zeros('int8')", "zeros(2,^-1)", "zeros(^1.5)", "zeros(^NaN)", "zeros(^[2 3])"}},
    {"class", {"zeros(2,^'cell')", "ones(2,^'char')"}},
    {"sizes", {"^reshape(1:6,6)"}},
    {"6 elements", {"reshape(1:6,^2,2)", "reshape(1:6,^4294967296,4294967296)"}},
    {"sparse", {"reshape(^sparse(1),1,1,1)", "single(^sparse(1))"}},
    {"imaginary", {"^complex(1)"}},
    {"class and size", {"complex(1,^int8(1))", "complex(1,^[1 2])"}},
    {"real", {"complex(^true,true)", "complex(^complex(1,1),1)"}},
    {"matrix", {"sparse(^'a')", "sparse(^ones(1,1,2))"}},
    {"numbers", {"int8(^{})", "double(^@f)"}},
    {"complex", {"char(^complex(1,1))"}},
    {"pairs", {"^struct('a')"}},
    {"field name", {"struct(^1,1)", "struct(^'1a',1)"}},
    {"already", {"struct('a',1,^'a',2)"}}};

TEST(Literal, IsRefusedAtThePlaceThatIsWrong) {
  for (const auto& [problem, literals] : kBadCases)
    for (std::string literal : literals) {
      const std::size_t position = takeMark(literal);
      expectRefusal(literal, position, problem);
    }
}

TEST(Literal, NestsAsDeepAsTheLimitAndNoDeeper) {
  EXPECT_NO_THROW(jsonOfLiteral(repeated("{", 64) + repeated("}", 64)));
  for (const std::string opening : {"{", "int8(", "struct('a',"})
    expectRefusal(repeated(opening, 65) + "1", 64 * opening.size(), "64");
}

TEST(Literal, RaisesTheHostsErrorWhereNoMemoryCouldHoldTheArray) {
  for (const char* literal : {"1:1e18", "-1e308:1e308", "1:Inf", "[0 1:1e18]", "zeros(1e10,1e10)",
                              "zeros(Inf)", "cell(1e30,1)", "ones(4294967296,4294967296,0)"})
    EXPECT_EQ(test::identifierRaisedBy([&] { jsonOfLiteral(literal); }),
              "VORTIL:array:SizeLimitExceeded")
        << literal;
}

// Without the limits these would take minutes or overflow the stack.
TEST(Literal, IsReadInTimeInProportionToItsLength) {
  constexpr std::size_t kMillion = 1000000;
  for (const char* part : {"[", "{", "int8(", "'a", "-", "1:", "{1 ", "[1 -", "1e9", "(", "}"})
    EXPECT_THROW(jsonOfLiteral(repeated(part, kMillion)), LiteralError) << part;
  const ArrayScope scope;
  EXPECT_EQ(vxGetN(parseLiteral("[" + repeated("7 ", kMillion) + "]").get()), kMillion);
  EXPECT_EQ(vxGetM(parseLiteral("{" + repeated("7 ;", kMillion) + "7}").get()), kMillion + 1);
  EXPECT_EQ(vxGetN(parseLiteral("'" + repeated("''", kMillion) + "'").get()), kMillion);
  EXPECT_EQ(vxGetN(parseLiteral("[1" + repeated(" ", kMillion) + "]").get()), 1U);
  EXPECT_EQ(vxGetScalar(parseLiteral("0." + repeated("3", kMillion)).get()), 1.0 / 3);
}

TEST(LiteralPrinter, DescribesWhatNoLiteralCanSay) {
  const ArrayScope scope;
  const vcos::ArrayOwner cell = parseLiteral("{1, 2, 3}");
  vxSetCell(cell.get(), 1, nullptr);
  EXPECT_EQ(formatLiteral(cell.get()), "{1, <null>, 3}");
  EXPECT_EQ(formatLiteral(nullptr), "<null>");
  const char* field = "a";
  EXPECT_EQ(formatLiteral(vcos::ArrayOwner(vxCreateStructMatrix(2, 3, 1, &field)).get()),
            "<2x3 struct>");
}

TEST(LiteralPrinter, KeepsCharactersThatHaveNoUtf8AndCutsLargeArraysOnlyWhenAskedTo) {
  const ArrayScope scope;
  const auto printed = [](const char* literal, auto... most) {
    return formatLiteral(parseLiteral(literal).get(), most...);
  };
  for (const char* literal : {"char([55296 65])", "char([56832; 55357])", "'\U0001F600'",
                              "char([97 10 98])", "{char([97; 8238]), 'a'}"})
    EXPECT_EQ(printed(literal), literal);
  EXPECT_EQ(printed("zeros(1,100000)", 100U), "[0 0 0 0 0 0 0 0 ... 100000 elements]");
  const std::string row(32, 'a');
  EXPECT_EQ(
      printed(("{1:3, '" + row + "', ['" + row + "a';'" + row + "b']}").c_str(), 3U),
      "{[1 2 3], '" + row + "', ['" + row + "' ... 33 elements; '" + row + "' ... 33 elements]}");
  EXPECT_EQ(printed("1:3", 2U), "[1 2 3 ... 3 elements]");
  EXPECT_EQ(printed("{1; 2; 3}", 2U), "{1; 2; 3; ... 3 elements}");
  EXPECT_EQ(printed("{1, 2, 3}", 2U), "{1, 2, 3, ... 3 elements}");
  EXPECT_EQ(printed("1:3", 3U), "[1 2 3]");
}

TEST(LiteralPrinter, GivesEachRowOfATextALineAndStillReadsBack) {
  const std::pair<const char*, std::vector<std::string>> kCases[] = {
      {"['a ';'bc']", {"['a ';", " 'bc']"}},
      {"{'a';['b';'c'];''}", {"{'a';", " ['b'; 'c'];", " ''}"}},
      {"'a'", {"'a'"}},
      {"{'a'}", {"{'a'}"}},
      {"{'a','b'}", {"{'a', 'b'}"}},
      {"{'a';1}", {"{'a'; 1}"}},
      {"char([97; 10])", {"char([97; 10])"}},
      {"zeros(0,1)", {"zeros(0,1)"}},
      {"char(zeros(2,0))", {"char(zeros(2,0))"}},
      {"reshape('abcd',2,1,2)", {"reshape('abcd',2,1,2)"}},
  };
  const ArrayScope scope;
  for (const auto& [literal, lines] : kCases) {
    const auto printed = formatLiteralRows(parseLiteral(literal).get(), 3);
    EXPECT_EQ(printed, lines);
    std::string whole;
    for (const std::string& line : printed)
      whole += line + '\n';
    whole.pop_back();
    EXPECT_EQ(jsonOfLiteral(whole), jsonOfLiteral(literal));
  }
  EXPECT_EQ(formatLiteralRows(nullptr, 3), std::vector<std::string>{"<null>"});
  EXPECT_EQ(formatLiteralRows(parseLiteral("['a';'b']").get(), 1),
            (std::vector<std::string>{"['a';", " 'b';", " ... 2 rows]"}));
}

TEST(Caret, StandsUnderThePlace) {
  const std::pair<std::string, std::string> kCases[] = {
      {"^", "\n^"},
      {"'é' ^x", "'é' x\n    ^"},
      {"'漢e\u0301' ^x", "'漢e\u0301' x\n      ^"},
      {"[1\n2 ^x\n3]", "2 x\n  ^"},
      {"\t\x1b ^x", "\\t\\x1b x\n       ^"},
      {std::string(20, '\x1b') + "^x",
       "..." + repeated("\\x1b", 10) + "x\n" + std::string(43, ' ') + "^"},
      {"^x" + std::string(20, '\v'), "x" + repeated("\\x0b", 5) + "...\n^"},
      {std::string(100, 'a') + "^x" + std::string(100, 'b'), "..." + std::string(41, 'a') + "x" +
                                                                 std::string(22, 'b') + "...\n" +
                                                                 std::string(44, ' ') + "^"}};
  for (auto [text, display] : kCases) {
    const std::size_t position = takeMark(text);
    EXPECT_EQ(caretDisplay(text, position), display) << text;
  }
}

}  // namespace
