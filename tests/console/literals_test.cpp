#include <gmock/gmock.h>

#include "Values.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "requests/JsonForms.h"
#include "support/HostError.h"
#include "text/TextDisplay.h"

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
  return dump(jsonOf(parseLiteral(literal).get()));
}

struct GoodCase {
  const char* literal;
  const char* json;
};

void PrintTo(const GoodCase& good, std::ostream* stream) {
  *stream << good.literal;
}

class GoodLiteral : public testing::TestWithParam<GoodCase> {};

TEST_P(GoodLiteral, BecomesTheArrayThatItDescribes) {
  EXPECT_EQ(jsonOfLiteral(GetParam().literal), GetParam().json);
}

TEST_P(GoodLiteral, IsPrintedSoThatItReadsBack) {
  const ArrayScope scope;
  const std::string printed = formatLiteral(parseLiteral(GetParam().literal).get());
  EXPECT_EQ(jsonOfLiteral(printed), GetParam().json) << printed;
}

#define SCALAR(CLASS, DATA) R"({"class":")" CLASS R"(","dims":[1,1],"data":[)" DATA "]}"
#define ARRAY(CLASS, DIMS, DATA) \
  R"({"class":")" CLASS R"(","dims":[)" DIMS R"(],"data":[)" DATA "]}"
#define TEXT(DIMS, ROWS) R"({"class":"char","dims":[)" DIMS R"(],"rows":[)" ROWS "]}"

INSTANTIATE_TEST_SUITE_P(
    Numbers, GoodLiteral,
    testing::Values(
        GoodCase{"1.5", SCALAR("double", "1.5")}, GoodCase{"-3", SCALAR("double", "-3")},
        GoodCase{" +.5e-1 ", SCALAR("double", "0.05")}, GoodCase{"1e5", SCALAR("double", "100000")},
        GoodCase{"1.", SCALAR("double", "1")}, GoodCase{"0.1", SCALAR("double", "0.1")},
        GoodCase{"-0", SCALAR("double", "-0.0")}, GoodCase{"1e300", SCALAR("double", "1e+300")},
        GoodCase{"5e-324", SCALAR("double", "5e-324")},
        GoodCase{"9007199254740993", SCALAR("double", "9.007199254740992e+15")},
        GoodCase{"1e999", SCALAR("double", R"("Inf")")},
        GoodCase{"-1e999", SCALAR("double", R"("-Inf")")},
        GoodCase{"1e-999", SCALAR("double", "0")}, GoodCase{"NaN", SCALAR("double", R"("NaN")")},
        GoodCase{"-Inf", SCALAR("double", R"("-Inf")")},
        GoodCase{"true", SCALAR("logical", "true")}));

INSTANTIATE_TEST_SUITE_P(
    Texts, GoodLiteral,
    testing::Values(
        GoodCase{"'on'", TEXT("1,2", R"("on")")}, GoodCase{"''", TEXT("0,0", "")},
        GoodCase{"'it''s'", TEXT("1,4", R"("it's")")}, GoodCase{"''''", TEXT("1,1", R"("'")")},
        GoodCase{"'a;]% \t'", TEXT("1,6", R"("a;]% \t")")},
        GoodCase{"'é😀'", TEXT("1,3", R"("é😀")")}, GoodCase{"'\xff'", TEXT("1,1", "\"\uFFFD\"")},
        GoodCase{"['ab';'cd']", TEXT("2,2", R"("ab","cd")")},
        GoodCase{"['a' 'b';'cd']", TEXT("2,2", R"("ab","cd")")},
        GoodCase{"['';'']", TEXT("0,0", "")},
        GoodCase{"char([55296 65])", TEXT("1,2", "\"\uFFFDA\"")},
        GoodCase{"reshape('abcd',1,2,2)", R"({"class":"char","dims":[1,2,2],"data":"abcd"})"}));

INSTANTIATE_TEST_SUITE_P(
    Matrices, GoodLiteral,
    testing::Values(GoodCase{"[1 2; 3 4]", ARRAY("double", "2,2", "1,3,2,4")},
                    GoodCase{"[ 1 , 2\n;\t3,4 ]", ARRAY("double", "2,2", "1,3,2,4")},
                    GoodCase{"[1 -2]", ARRAY("double", "1,2", "1,-2")},
                    GoodCase{"[true false]", ARRAY("logical", "1,2", "true,false")},
                    GoodCase{"[true 2]", ARRAY("double", "1,2", "1,2")},
                    GoodCase{"[]", ARRAY("double", "0,0", "")},
                    GoodCase{"2:4", ARRAY("double", "1,3", "2,3,4")},
                    GoodCase{"0.5 : 2", ARRAY("double", "1,2", "0.5,1.5")},
                    GoodCase{"0.1:3.1", ARRAY("double", "1,4", "0.1,1.1,2.1,3.1")},
                    GoodCase{"3:1", ARRAY("double", "1,0", "")},
                    GoodCase{"[1:2; 3:4]", ARRAY("double", "2,2", "1,3,2,4")},
                    GoodCase{"[0 1:3]", ARRAY("double", "1,4", "0,1,2,3")}));

INSTANTIATE_TEST_SUITE_P(
    Casts, GoodLiteral,
    testing::Values(
        GoodCase{"int8([0.5 -0.5 2.5 127.5 -200 NaN Inf])",
                 ARRAY("int8", "1,7", "1,-1,3,127,-128,0,127")},
        GoodCase{"int32(NaN)", SCALAR("int32", "0")},
        GoodCase{"uint8([-1 255.4 256])", ARRAY("uint8", "1,3", "0,255,255")},
        GoodCase{"int64([9007199254740993 -9007199254740993])",
                 ARRAY("int64", "1,2", "9007199254740992,-9007199254740992")},
        GoodCase{"int64([-9223372036854775808; 9223372036854775808])",
                 ARRAY("int64", "2,1", "-9223372036854775808,9223372036854775807")},
        GoodCase{"uint64([18446744073709551615 -9007199254740993])",
                 ARRAY("uint64", "1,2", "18446744073709551615,0")},
        GoodCase{"int64(uint64(18446744073709551615))", SCALAR("int64", "9223372036854775807")},
        GoodCase{"uint64(int64(-1))", SCALAR("uint64", "0")},
        GoodCase{"int32('ab')", ARRAY("int32", "1,2", "97,98")},
        GoodCase{"single(0.1)", SCALAR("single", "0.1")},
        GoodCase{"single(-Inf)", SCALAR("single", R"("-Inf")")},
        GoodCase{"double(true)", SCALAR("double", "1")},
        GoodCase{"logical([0 2])", ARRAY("logical", "1,2", "false,true")},
        GoodCase{"char([72 105])", TEXT("1,2", R"("Hi")")},
        GoodCase{"int16(complex(1.5,2.5))",
                 R"({"class":"int16","dims":[1,1],"data":[2],"imag":[3]})"},
        GoodCase{"logical(sparse([2 0]))",
                 R"({"class":"logical","dims":[1,2],"data":[true,false],"sparse":true})"}));

INSTANTIATE_TEST_SUITE_P(
    Functions, GoodLiteral,
    testing::Values(GoodCase{"zeros(2)", ARRAY("double", "2,2", "0,0,0,0")},
                    GoodCase{"zeros(1,0,'int8')", ARRAY("int8", "1,0", "")},
                    GoodCase{"zeros(0,'logical')", ARRAY("logical", "0,0", "")},
                    GoodCase{"ones(1,2,2,'uint16')", ARRAY("uint16", "1,2,2", "1,1,1,1")},
                    GoodCase{"ones ( 1e0 , 1 )", SCALAR("double", "1")},
                    GoodCase{"reshape([1 2;3 4],1,4)", ARRAY("double", "1,4", "1,3,2,4")},
                    GoodCase{"complex([1 2],[-1 0.5])",
                             R"({"class":"double","dims":[1,2],"data":[1,2],"imag":[-1,0.5]})"},
                    GoodCase{"complex(zeros(2,0),zeros(2,0))",
                             R"({"class":"double","dims":[2,0],"data":[],"imag":[]})"},
                    GoodCase{"sparse([1 0;0 1])",
                             R"({"class":"double","dims":[2,2],"data":[1,0,0,1],"sparse":true})"}));

INSTANTIATE_TEST_SUITE_P(
    Composites, GoodLiteral,
    testing::Values(
        GoodCase{"{}", ARRAY("cell", "0,0", "")}, GoodCase{"cell(0,2)", ARRAY("cell", "0,2", "")},
        GoodCase{"cell(1,2)", ARRAY("cell", "1,2", "null,null")},
        GoodCase{"{1, 'a'; {} -2}",
                 ARRAY("cell", "2,2",
                       SCALAR("double", "1") "," ARRAY("cell", "0,0", "") "," TEXT(
                           "1,1", R"("a")") "," SCALAR("double", "-2"))},
        GoodCase{"reshape({1,2},1,1,2)",
                 ARRAY("cell", "1,1,2", SCALAR("double", "1") "," SCALAR("double", "2"))},
        GoodCase{
            "struct('b',1,'a',{true})",
            R"({"class":"struct","dims":[1,1],"fields":{"b":)" SCALAR(
                "double", "1") R"(,"a":)" ARRAY("cell", "1,1", SCALAR("logical", "true")) "}}"},
        GoodCase{"struct()", R"({"class":"struct","dims":[1,1],"fields":{}})"},
        GoodCase{"@a_1.b", R"({"class":"function_handle","dims":[1,1],"text":"a_1.b"})"},
        GoodCase{"empty_handle", ARRAY("handle", "0,0", "")}));

struct BadCase {
  const char* literal;
  std::size_t position;
  const char* problem;
};

void PrintTo(const BadCase& bad, std::ostream* stream) {
  *stream << bad.literal;
}

class BadLiteral : public testing::TestWithParam<BadCase> {};

TEST_P(BadLiteral, IsRefusedAtThePlaceThatIsWrong) {
  const ArrayScope scope;
  try {
    parseLiteral(GetParam().literal);
    ADD_FAILURE() << "accepted: " << GetParam().literal;
  } catch (const LiteralError& error) {
    EXPECT_EQ(error.position(), GetParam().position) << GetParam().literal;
    EXPECT_THAT(error.what(), HasSubstr(GetParam().problem)) << GetParam().literal;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Syntax, BadLiteral,
    testing::Values(BadCase{"", 0, "expected a value"}, BadCase{"  ", 2, "expected a value"},
                    BadCase{"--1", 0, "expected a value"}, BadCase{"1 2", 2, "end"},
                    BadCase{"1e", 1, "end"}, BadCase{"1:2:3", 3, "end"}, BadCase{"1:x", 2, "range"},
                    BadCase{"NaN:3", 0, "NaN"}, BadCase{"'ab", 3, "quote"},
                    BadCase{"'a''", 4, "quote"}, BadCase{"on", 0, "'on'"},
                    BadCase{"truely", 0, "truely"}, BadCase{"@", 1, "name"},
                    BadCase{"1\n", 1, "end"}, BadCase{"foo(1)", 0, "foo"},
                    BadCase{"int8 1", 5, "expected ("}, BadCase{"int8(1", 6, "comma or )"},
                    BadCase{"int8(1,", 7, "expected a value"}));

INSTANTIATE_TEST_SUITE_P(
    Brackets, BadLiteral,
    testing::Values(BadCase{"[1 2", 4, "]"}, BadCase{"[1 - 2]", 3, "]"}, BadCase{"[1-2]", 2, "]"},
                    BadCase{"[1,]", 3, "expected a number"},
                    BadCase{"[1;]", 3, "expected a number"},
                    BadCase{"[,1]", 1, "expected a number"},
                    BadCase{"[[1]]", 1, "expected a number"},
                    BadCase{"[{1}]", 1, "expected a number"}, BadCase{"[1 2; 3]", 6, "length"},
                    BadCase{"['ab';'c']", 6, "length"}, BadCase{"[1 'a']", 3, "mix"},
                    BadCase{"['a' true]", 5, "mix"}, BadCase{"{1", 2, "}"},
                    BadCase{"{1,,2}", 3, "expected a value"}, BadCase{"{1;2,3}", 3, "elements"}));

INSTANTIATE_TEST_SUITE_P(
    Arguments, BadLiteral,
    testing::Values(
        BadCase{"zeros()", 0, "size"}, BadCase{"zeros('int8')", 0, "size"},
        BadCase{"zeros(2,-1)", 8, "size"}, BadCase{"zeros(1.5)", 6, "size"},
        BadCase{"zeros(NaN)", 6, "size"}, BadCase{"zeros([2 3])", 6, "size"},
        BadCase{"zeros(2,'cell')", 8, "class"}, BadCase{"ones(2,'char')", 7, "class"},
        BadCase{"reshape(1:6,6)", 0, "sizes"}, BadCase{"reshape(1:6,2,2)", 12, "6 elements"},
        BadCase{"reshape(1:6,4294967296,4294967296)", 12, "6 elements"},
        BadCase{"reshape(sparse(1),1,1,1)", 8, "sparse"}, BadCase{"complex(1)", 0, "imaginary"},
        BadCase{"complex(1,int8(1))", 10, "class and size"},
        BadCase{"complex(1,[1 2])", 10, "class and size"}, BadCase{"complex(true,true)", 8, "real"},
        BadCase{"complex(complex(1,1),1)", 8, "real"}, BadCase{"sparse('a')", 7, "matrix"},
        BadCase{"sparse(ones(1,1,2))", 7, "matrix"}, BadCase{"single(sparse(1))", 7, "sparse"},
        BadCase{"int8({})", 5, "numbers"}, BadCase{"double(@f)", 7, "numbers"},
        BadCase{"logical([0 NaN])", 8, "NaN"}, BadCase{"char(complex(1,1))", 5, "complex"},
        BadCase{"struct('a')", 0, "pairs"}, BadCase{"struct(1,1)", 7, "field name"},
        BadCase{"struct('1a',1)", 7, "field name"}, BadCase{"struct('a',1,'a',2)", 13, "already"}));

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

struct CaretCase {
  std::string text;
  std::size_t position;
  std::string display;
};

class Caret : public testing::TestWithParam<CaretCase> {};

TEST_P(Caret, StandsUnderThePlace) {
  EXPECT_EQ(caretDisplay(GetParam().text, GetParam().position), GetParam().display);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Caret,
    testing::Values(CaretCase{"[1 x]", 3, "[1 x]\n   ^"}, CaretCase{"", 0, "\n^"},
                    CaretCase{"{1", 2, "{1\n  ^"}, CaretCase{"'é' x", 5, "'é' x\n    ^"},
                    CaretCase{"'漢e\u0301' x", 9, "'漢e\u0301' x\n      ^"},
                    CaretCase{"[1\n2 x\n3]", 5, "2 x\n  ^"}, CaretCase{"\t\x1b x", 3, "   x\n   ^"},
                    CaretCase{std::string(100, 'a') + "x" + std::string(100, 'b'), 100,
                              "..." + std::string(41, 'a') + "x" + std::string(22, 'b') + "...\n" +
                                  std::string(44, ' ') + "^"}));

}  // namespace
