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

#define SCALAR(CLASS, DATA) R"({"class":")" CLASS R"(","dims":[1,1],"data":[)" DATA "]}"
#define ARRAY(CLASS, DIMS, DATA) \
  R"({"class":")" CLASS R"(","dims":[)" DIMS R"(],"data":[)" DATA "]}"
#define TEXT(DIMS, ROWS) R"({"class":"char","dims":[)" DIMS R"(],"rows":[)" ROWS "]}"

struct GoodCase {
  const char* literal;
  const char* json;
};
constexpr GoodCase kGoodCases[] = {
    {"1.5", SCALAR("double", "1.5")},
    {"-3", SCALAR("double", "-3")},
    {" +.5e-1 ", SCALAR("double", "0.05")},
    {"1e5", SCALAR("double", "100000")},
    {"1.", SCALAR("double", "1")},
    {"0.1", SCALAR("double", "0.1")},
    {"-0", SCALAR("double", "-0.0")},
    {"1e300", SCALAR("double", "1e+300")},
    {"5e-324", SCALAR("double", "5e-324")},
    {"9007199254740993", SCALAR("double", "9.007199254740992e+15")},
    {"1e999", SCALAR("double", R"("Inf")")},
    {"-1e999", SCALAR("double", R"("-Inf")")},
    {"1e-999", SCALAR("double", "0")},
    {"NaN", SCALAR("double", R"("NaN")")},
    {"-Inf", SCALAR("double", R"("-Inf")")},
    {"true", SCALAR("logical", "true")},
    {"'on'", TEXT("1,2", R"("on")")},
    {"''", TEXT("0,0", "")},
    {"'it''s'", TEXT("1,4", R"("it's")")},
    {"''''", TEXT("1,1", R"("'")")},
    {"'a;]% \t'", TEXT("1,6", R"("a;]% \t")")},
    {"'é😀'", TEXT("1,3", R"("é😀")")},
    {"'\xff'", TEXT("1,1", "\"\uFFFD\"")},
    {"['ab';'cd']", TEXT("2,2", R"("ab","cd")")},
    {"['a' 'b';'cd']", TEXT("2,2", R"("ab","cd")")},
    {"['';'']", TEXT("0,0", "")},
    {"char([55296 65])", TEXT("1,2", "\"\uFFFDA\"")},
    {"reshape('abcd',1,2,2)", R"({"class":"char","dims":[1,2,2],"data":"abcd"})"},
    {"[1 2; 3 4]", ARRAY("double", "2,2", "1,3,2,4")},
    {"[ 1 , 2\n;\t3,4 ]", ARRAY("double", "2,2", "1,3,2,4")},
    {"[1 -2]", ARRAY("double", "1,2", "1,-2")},
    {"[true false]", ARRAY("logical", "1,2", "true,false")},
    {"[true 2]", ARRAY("double", "1,2", "1,2")},
    {"[]", ARRAY("double", "0,0", "")},
    {"2:4", ARRAY("double", "1,3", "2,3,4")},
    {"0.5 : 2", ARRAY("double", "1,2", "0.5,1.5")},
    {"0.1:3.1", ARRAY("double", "1,4", "0.1,1.1,2.1,3.1")},
    {"3:1", ARRAY("double", "1,0", "")},
    {"[1:2; 3:4]", ARRAY("double", "2,2", "1,3,2,4")},
    {"[0 1:3]", ARRAY("double", "1,4", "0,1,2,3")},
    {"int8([0.5 -0.5 2.5 127.5 -200 NaN Inf])", ARRAY("int8", "1,7", "1,-1,3,127,-128,0,127")},
    {"int32(NaN)", SCALAR("int32", "0")},
    {"uint8([-1 255.4 256])", ARRAY("uint8", "1,3", "0,255,255")},
    {"int64([9007199254740993 -9007199254740993])",
     ARRAY("int64", "1,2", "9007199254740992,-9007199254740992")},
    {"int64([-9223372036854775808; 9223372036854775808])",
     ARRAY("int64", "2,1", "-9223372036854775808,9223372036854775807")},
    {"uint64([18446744073709551615 -9007199254740993])",
     ARRAY("uint64", "1,2", "18446744073709551615,0")},
    {"int64(uint64(18446744073709551615))", SCALAR("int64", "9223372036854775807")},
    {"uint64(int64(-1))", SCALAR("uint64", "0")},
    {"int32('ab')", ARRAY("int32", "1,2", "97,98")},
    {"single(0.1)", SCALAR("single", "0.1")},
    {"single(-Inf)", SCALAR("single", R"("-Inf")")},
    {"double(true)", SCALAR("double", "1")},
    {"logical([0 2])", ARRAY("logical", "1,2", "false,true")},
    {"char([72 105])", TEXT("1,2", R"("Hi")")},
    {"int16(complex(1.5,2.5))", R"({"class":"int16","dims":[1,1],"data":[2],"imag":[3]})"},
    {"logical(sparse([2 0]))",
     R"({"class":"logical","dims":[1,2],"data":[true,false],"sparse":true})"},
    {"zeros(2)", ARRAY("double", "2,2", "0,0,0,0")},
    {"zeros(1,0,'int8')", ARRAY("int8", "1,0", "")},
    {"zeros(0,'logical')", ARRAY("logical", "0,0", "")},
    {"ones(1,2,2,'uint16')", ARRAY("uint16", "1,2,2", "1,1,1,1")},
    {"ones ( 1e0 , 1 )", SCALAR("double", "1")},
    {"reshape([1 2;3 4],1,4)", ARRAY("double", "1,4", "1,3,2,4")},
    {"complex([1 2],[-1 0.5])", R"({"class":"double","dims":[1,2],"data":[1,2],"imag":[-1,0.5]})"},
    {"complex(zeros(2,0),zeros(2,0))", R"({"class":"double","dims":[2,0],"data":[],"imag":[]})"},
    {"sparse([1 0;0 1])", R"({"class":"double","dims":[2,2],"data":[1,0,0,1],"sparse":true})"},
    {"{}", ARRAY("cell", "0,0", "")},
    {"cell(0,2)", ARRAY("cell", "0,2", "")},
    {"cell(1,2)", ARRAY("cell", "1,2", "null,null")},
    {"{1, 'a'; {} -2}", ARRAY("cell", "2,2",
                              SCALAR("double", "1") "," ARRAY("cell", "0,0", "") "," TEXT(
                                  "1,1", R"("a")") "," SCALAR("double", "-2"))},
    {"reshape({1,2},1,1,2)",
     ARRAY("cell", "1,1,2", SCALAR("double", "1") "," SCALAR("double", "2"))},
    {"struct('b',1,'a',{true})",
     R"({"class":"struct","dims":[1,1],"fields":{"b":)" SCALAR("double", "1") R"(,"a":)" ARRAY(
         "cell", "1,1", SCALAR("logical", "true")) "}}"},
    {"struct()", R"({"class":"struct","dims":[1,1],"fields":{}})"},
    {"@a_1.b", R"({"class":"function_handle","dims":[1,1],"text":"a_1.b"})"},
    {"empty_handle", ARRAY("handle", "0,0", "")}};

TEST(Literal, BecomesTheArrayThatItDescribesAndPrintsSoThatItReadsBack) {
  for (const auto& [literal, json] : kGoodCases) {
    EXPECT_EQ(jsonOfLiteral(literal), json) << literal;
    const ArrayScope scope;
    const std::string printed = formatLiteral(parseLiteral(literal).get());
    EXPECT_EQ(jsonOfLiteral(printed), json) << printed;
  }
}

struct BadCase {
  const char* literal;
  std::size_t position;
  const char* problem;
};
constexpr BadCase kBadCases[] = {{"", 0, "expected a value"},
                                 {"  ", 2, "expected a value"},
                                 {"--1", 0, "expected a value"},
                                 {"1 2", 2, "end"},
                                 {"1e", 1, "end"},
                                 {"1:2:3", 3, "end"},
                                 {"1:x", 2, "range"},
                                 {"NaN:3", 0, "NaN"},
                                 {"'ab", 3, "quote"},
                                 {"'a''", 4, "quote"},
                                 {"on", 0, "'on'"},
                                 {"truely", 0, "truely"},
                                 {"@", 1, "name"},
                                 {"1\n", 1, "end"},
                                 {"foo(1)", 0, "foo"},
                                 {"int8 1", 5, "expected ("},
                                 {"int8(1", 6, "comma or )"},
                                 {"int8(1,", 7, "expected a value"},
                                 {"[1 2", 4, "]"},
                                 {"[1 - 2]", 3, "]"},
                                 {"[1-2]", 2, "]"},
                                 {"[1,]", 3, "expected a number"},
                                 {"[1;]", 3, "expected a number"},
                                 {"[,1]", 1, "expected a number"},
                                 {"[[1]]", 1, "expected a number"},
                                 {"[{1}]", 1, "expected a number"},
                                 {"[1 2; 3]", 6, "length"},
                                 {"['ab';'c']", 6, "length"},
                                 {"[1 'a']", 3, "mix"},
                                 {"['a' true]", 5, "mix"},
                                 {"{1", 2, "}"},
                                 {"{1,,2}", 3, "expected a value"},
                                 {"{1;2,3}", 3, "elements"},
                                 {"zeros()", 0, "size"},
                                 {"zeros('int8')", 0, "size"},
                                 {"zeros(2,-1)", 8, "size"},
                                 {"zeros(1.5)", 6, "size"},
                                 {"zeros(NaN)", 6, "size"},
                                 {"zeros([2 3])", 6, "size"},
                                 {"zeros(2,'cell')", 8, "class"},
                                 {"ones(2,'char')", 7, "class"},
                                 {"reshape(1:6,6)", 0, "sizes"},
                                 {"reshape(1:6,2,2)", 12, "6 elements"},
                                 {"reshape(1:6,4294967296,4294967296)", 12, "6 elements"},
                                 {"reshape(sparse(1),1,1,1)", 8, "sparse"},
                                 {"complex(1)", 0, "imaginary"},
                                 {"complex(1,int8(1))", 10, "class and size"},
                                 {"complex(1,[1 2])", 10, "class and size"},
                                 {"complex(true,true)", 8, "real"},
                                 {"complex(complex(1,1),1)", 8, "real"},
                                 {"sparse('a')", 7, "matrix"},
                                 {"sparse(ones(1,1,2))", 7, "matrix"},
                                 {"single(sparse(1))", 7, "sparse"},
                                 {"int8({})", 5, "numbers"},
                                 {"double(@f)", 7, "numbers"},
                                 {"logical([0 NaN])", 8, "NaN"},
                                 {"char(complex(1,1))", 5, "complex"},
                                 {"struct('a')", 0, "pairs"},
                                 {"struct(1,1)", 7, "field name"},
                                 {"struct('1a',1)", 7, "field name"},
                                 {"struct('a',1,'a',2)", 13, "already"}};

TEST(Literal, IsRefusedAtThePlaceThatIsWrong) {
  const ArrayScope scope;
  for (const auto& [literal, position, problem] : kBadCases)
    try {
      parseLiteral(literal);
      ADD_FAILURE() << "accepted: " << literal;
    } catch (const LiteralError& error) {
      EXPECT_EQ(error.position(), position) << literal;
      EXPECT_THAT(error.what(), HasSubstr(problem)) << literal;
    }
}

TEST(Literal, NestsAsDeepAsTheLimitAndNoDeeper) {
  EXPECT_NO_THROW(jsonOfLiteral(repeated("{", 64) + repeated("}", 64)));
  for (const char* opening : {"{", "int8(", "struct('a',"}) {
    const std::string deep = repeated(opening, 65);
    try {
      jsonOfLiteral(deep + "1");
      ADD_FAILURE() << opening;
    } catch (const LiteralError& error) {
      EXPECT_EQ(error.position(), deep.size() - std::string(opening).size());
      EXPECT_THAT(error.what(), HasSubstr("64"));
    }
  }
}

TEST(Literal, HoldsAnyBytesInATextButALoneQuote) {
  const ArrayScope scope;
  const auto array = parseLiteral(std::string_view("'a\0\n'", 5));
  EXPECT_EQ(vxArrayToStdString(array.get()), std::string("a\0\n", 3));
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

TEST(Literal, LeavesNoArrayBehindWhenItFails) {
  const std::size_t before = vghost::liveArrays();
  EXPECT_THROW(parseLiteral("{1, 'a', struct('b', {2, [3 4; 5]})}"), LiteralError);
  EXPECT_EQ(vghost::liveArrays(), before);
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

TEST(LiteralPrinter, KeepsCharactersThatHaveNoUtf8) {
  const ArrayScope scope;
  for (const char* literal : {"char([55296 65])", "char([56832; 55357])", "'\U0001F600'"})
    EXPECT_EQ(formatLiteral(parseLiteral(literal).get()), literal);
}

TEST(LiteralPrinter, CutsLargeArraysOnlyWhenAskedTo) {
  const ArrayScope scope;
  EXPECT_EQ(formatLiteral(parseLiteral("zeros(1,100000)").get(), 100),
            "[0 0 0 0 0 0 0 0 ... 100000 elements]");
  EXPECT_EQ(formatLiteral(parseLiteral("{1:3, 'abcd'}").get(), 2),
            "{[1 2 3 ... 3 elements], ['abcd' ... 4 elements]}");
  EXPECT_EQ(formatLiteral(parseLiteral("{1, 2, 3}").get(), 2), "{1, 2, 3, ... 3 elements}");
  EXPECT_EQ(formatLiteral(parseLiteral("1:3").get(), 3), "[1 2 3]");
}

TEST(Caret, StandsUnderThePlace) {
  struct {
    std::string text;
    std::size_t position;
    std::string display;
  } const kCases[] = {{"[1 x]", 3, "[1 x]\n   ^"},
                      {"", 0, "\n^"},
                      {"{1", 2, "{1\n  ^"},
                      {"'é' x", 5, "'é' x\n    ^"},
                      {"'漢e\u0301' x", 9, "'漢e\u0301' x\n      ^"},
                      {"[1\n2 x\n3]", 5, "2 x\n  ^"},
                      {"\t\x1b x", 3, "\\t\\x1b x\n       ^"},
                      {std::string(20, '\x1b') + "x", 20,
                       "..." + repeated("\\x1b", 10) + "x\n" + std::string(43, ' ') + "^"},
                      {"x" + std::string(20, '\n' + 1), 0, "x" + repeated("\\x0b", 5) + "...\n^"},
                      {std::string(100, 'a') + "x" + std::string(100, 'b'), 100,
                       "..." + std::string(41, 'a') + "x" + std::string(22, 'b') + "...\n" +
                           std::string(44, ' ') + "^"}};
  for (const auto& [text, position, display] : kCases)
    EXPECT_EQ(caretDisplay(text, position), display) << text;
}

}  // namespace
