// What the types of text take, and what they make of it.

#include "literal/Literal.h"
#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/FontNameDataType.h>
#include <graphics/datatype/NLineStylesDataType.h>
#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace graphics::datatype;
using test::accessOf;
using test::ArrayOwner;
using test::identifierRaisedBy;
using vcos::COSValue;
using vcos::OwnedValue;
using vgdt::parseLiteral;

class Text : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

/// 'ab/c ' for two rows of characters, {'a', 'b'} for a column of cells; with its size in front
/// what is neither that nor 0 by 0.
std::string shown(const vxArray* array) {
  if (!array) return "null";
  const std::size_t rows = vxGetM(array);
  const std::size_t count = vxGetNumberOfElements(array);
  const bool isCell = vxGetClassID(array) == vxCELL_CLASS;
  const bool isOrdinary = vxGetNumberOfDimensions(array) == 2 &&
                          (isCell ? vxGetN(array) == 1 : count != 0 || rows + vxGetN(array) == 0);
  std::string words;
  if (!isOrdinary)
    words = vghost::sizeText(vxGetDimensions(array), vxGetNumberOfDimensions(array)) + " ";
  if (isCell) {
    for (std::size_t i = 0; i < count; ++i)
      words += (i == 0 ? "{" : ", ") + shown(vxGetCell(array, i));
    return words + (count == 0 ? "{}" : "}");
  }
  if (vxGetClassID(array) != vxCHAR_CLASS) return words + vxGetClassName(array);
  fl::ustring text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i != 0 && i % vxGetN(array) == 0) text += '/';
    text +=
        static_cast<const vxChar*>(vxGetData(array))[i % vxGetN(array) * rows + i / vxGetN(array)];
  }
  return words + "'" + fl::i18n::to_utf8(text.data(), text.size()) + "'";
}

/// What goes back from the value that a type makes of an array or a text, or what is raised.
template <class Make>
std::string backFrom(const std::string& type, Make&& make) {
  const vcos::TypeAccess access = accessOf(type);
  std::string words;
  const std::string raised = identifierRaisedBy([&] {
    const OwnedValue value(access.dataType(), make(access));
    words = shown(access.toArray(value.get()).get());
  });
  return raised.empty() ? words : test::shortIdentifier(raised);
}
std::string backFromArray(const std::string& type, const std::string& literal) {
  return backFrom(
      type, [=](const auto& access) { return access.fromArray(parseLiteral(literal).get()); });
}
std::string backFromText(const std::string& type, const std::string& text) {
  return backFrom(type, [&](const auto& access) { return access.fromText(text.c_str()); });
}

constexpr const char* kNoText = "VORTIL:class:VORTILConversionError";
constexpr const char* kNoStyle = "VORTIL:vgdatatypes:InvalidMarkerLineStyle";

/// In each line a type, what comes back from it, and of what: literals of arrays after "<-", texts
/// after "<=", with " ~ " between two.
constexpr const char* kTable = R"(
TextString '' <- '' ~ reshape('',0,3) ~ reshape('',2,3,0)
TextString 'abc/def' <- ['abc';'def']
TextString {'a', '', 'bc'} <- {'a';'';'bc'}
TextString {'a', 2x3x0 ''} <- {'a';reshape('',2,3,0)}
TextString {'ab/cd'} <- {['ab';'cd']}
TextString {null, null} <- cell(2,1)
TextString 0x0 {} <- {}
TextString 0x3 {} <- cell(0,3)
TextString datatypes:TextStringDataType:IncorrectShape <- reshape('abcdef',1,2,3)
TextString datatypes:TextStringDataType:IncorrectShape <- {'a','b'} ~ cell(2,2)
TextString datatypes:TextStringDataType:IncorrectShape <- reshape({'a';'b'},2,1,1) ~ cell(1,1,2)
TextString datatypes:TextStringDataType:InvalidCellArray <- {1} ~ {'a';{'b'}}
TextString datatypes:TextStringDataType:InvalidCellArray <- {reshape('abcd',1,2,2)} ~ {[]} ~ {true}
TextString datatypes:TextStringDataType:ArrayClass <- 5 ~ [] ~ true ~ struct('a',1)
TextString datatypes:TextStringDataType:ArrayClass <- @f ~ empty_handle
TextString 'a' <= a
TextString '' <=

NumericOrString '5' <- 5 ~ int8(5) ~ uint64(5) ~ single(5) ~ sparse(5) ~ complex(5,7)
NumericOrString '1 /22/3 ' <- [1 22 3] ~ [1;22;3] ~ reshape([1 22 3],1,1,3) ~ ['1 ';'22';'3 ']
NumericOrString '-Inf /NaN  /Inf  /0.1  /1e+06/-0   /-2   ' <- [-Inf NaN Inf 0.1 1000000 -0 -2]
NumericOrString '' <- [] ~ [1 2;3 4] ~ zeros(0,3) ~ ones(2,2,2) ~ '' ~ reshape('',3,0)
NumericOrString 'abc/def' <- ['abc';'def']
NumericOrString 'ad/be' <- reshape('abde',2,1,2)
NumericOrString 'a/b' <- char([97 10 98])
NumericOrString 'ab/c ' <- char([97 98 10 99])
NumericOrString 'a/ ' <- char([97 10])
NumericOrString ' /a/ / ' <- char([10 97 10 10])
NumericOrString '' <- char(10) ~ char([10 10;10 10])
NumericOrString 'ab   /     /cd   ' <- char([97 98 32 10 32;99 100 32 32 32])
NumericOrString {'a', '1'} <- {'a';1} ~ {'a',1} ~ reshape({'a';1},1,1,2)
NumericOrString {'1', '2'} <- {1,2} ~ {[1 2]} ~ {[1;2]}
NumericOrString {'a', '1', '2', '3'} <- {'a'; 1; [2 3]}
NumericOrString {'a ', 'bc', '', ''} <- {char([97 10 98 99]);'';[]}
NumericOrString {'', 'x'} <- {[1 2;3 4];'x'} ~ {'';'x'}
NumericOrString {'ab', 'cd', '9'} <- {['ab';'cd'],9}
NumericOrString {'ab'} <- {reshape('ab',1,1,2)}
NumericOrString 0x0 {} <- {}
NumericOrString 0x3 {} <- cell(0,3)
NumericOrString datatypes:TextStringDataType:ArrayClass <- zeros(0,0,'logical') ~ empty_handle
NumericOrString datatypes:NumericOrStringDataType:ArrayClass <- true ~ struct('a',1) ~ @f
NumericOrString datatypes:NumericOrStringDataType:InvalidCellArray <- {struct('a',1)} ~ {{'a'}}
NumericOrString datatypes:NumericOrStringDataType:InvalidCellArray <- {'a',true} ~ cell(1,1)
NumericOrString '{1}' <= {1}

UTF16String '' <- '' ~ reshape('',3,0)
UTF16String 'ab ' <- 'ab ' ~ reshape('ab ',1,1,3)
UTF16String UTF16StringDataType:NumberOfStrings <- ['abc';'def'] ~ ['a';'b']
UTF16String UTF16StringDataType:ArrayClass <- 5 ~ [] ~ {'a'}

CaseInsensitiveString 'Left' <- 'Left'
CaseInsensitiveString 'acbd' <- ['ab';'cd']
CaseInsensitiveString VORTIL:class:VORTILConversionError <- 5 ~ {'a'}
CaseInsensitiveString 'LeFt' <= LeFt

NStrings {'a ', 'b '} <- ['a ';'b '] ~ {'a ';'b '}
NStrings {'', 'b'} <- {'';'b'}
NStrings {'', ''} <- cell(1,2)
NStrings {} <- {}
NStrings VORTIL:class:VORTILConversionError <- [] ~ {1} ~ {'a',{'b'}} ~ struct('a',1)
NStrings {'a', 'b'} <= {'a', 'b'} ~  { 'a';'b' } ~ {'a' 'b'}
NStrings {'it's', ''} <= {'it''s',''}
NStrings {} <= [] ~ {}
NStrings {'{a}'} <= {a}
NStrings {'{'a''} <= {'a'
NStrings {'{'a',}'} <= {'a',}

FontName 'Serif' <- 'Serif'
FontName VORTIL:class:VORTILConversionError <- '' ~ ['ab';'cd'] ~ ['a';'b'] ~ 5 ~ {'a'} ~ char(0)
FontName VORTIL:class:VORTILConversionError <- reshape('ab',1,1,2)
FontName 'Two Words' <= Two Words
FontName '' <=

NLineStyles '-' <- '-' ~ char([45 0])
NLineStyles '- /--/: ' <- '-|--|:' ~ char([45 0;45 45;58 0])
NLineStyles '-/o' <- '-|o' ~ ['-';'|';'o'] ~ reshape('-o',2,1,1)
NLineStyles {'-.', 'square', 'o--'} <- {'-.','square','o--'} ~ {'-.';'square';'o--'}
NLineStyles VORTIL:vgdatatypes:InvalidMarkerLineStyle <- 'r-' ~ '-|' ~ '|-' ~ '-||:' ~ '|' ~ {''}
NLineStyles VORTIL:vgdatatypes:InvalidMarkerLineStyle <- {'-|:'} ~ ' -' ~ '- ' ~ ['- ';'--']
NLineStyles VORTIL:vgdatatypes:NotEnoughStyles <- '' ~ {} ~ cell(0,2) ~ reshape('',3,0)
NLineStyles VORTIL:vgdatatypes:InvalidInput <- 5 ~ [] ~ {1} ~ {'-';1} ~ cell(1,1) ~ struct('a',1)
NLineStyles '-' <= [] ~ {}
NLineStyles '--/: ' <= --|:
NLineStyles {'--', '-.x'} <= {'--','-.x'}
NLineStyles VORTIL:vgdatatypes:InvalidMarkerLineStyle <= --| ~ {'-|:'} ~ { ~ %s{0}
)";

TEST_F(Text, ArraysAndTextsBecomeValuesOrAreRefused) {
  std::istringstream table(kTable);
  for (std::string line; std::getline(table, line);) {
    if (line.empty()) continue;
    const std::size_t outcome = line.find(' ') + 1;
    const std::size_t arrow = line.find(" <");
    const std::string type = line.substr(0, outcome - 1);
    std::string given = line.substr(std::min(arrow + 4, line.size())) + " ~ ";
    for (std::size_t end = 0; (end = given.find(" ~ ")) != given.npos; given.erase(0, end + 3)) {
      const std::string one = given.substr(0, end);
      EXPECT_EQ(line[arrow + 2] == '-' ? backFromArray(type, one) : backFromText(type, one),
                line.substr(outcome, arrow - outcome))
          << type << " " << one;
    }
  }
}

TEST_F(Text, ErrorsShowWhatWasGivenAsItIs) {
  EXPECT_EQ(backFromText("NLineStyles", "%s'{0}"), kNoStyle);
  EXPECT_THAT(test::lastError().text, testing::StartsWith("\"%s'{0}\" is no line style"));
  const std::pair<const char*, const char*> rows[] = {
      {"''", "Invalid font name"},
      {"['a';'b']", "Invalid font name"},
      {"char(0)", "Invalid font: null or empty string"}};
  for (const auto& [literal, text] : rows) {
    EXPECT_EQ(backFromArray("FontName", literal), kNoText);
    EXPECT_STREQ(test::lastError().text, text);
  }
}

TEST_F(Text, TextsOfUnicodeLeaveAsTheirLowBytes) {
  for (const char* text : {"a\nb", "\U0001D11E"})
    for (const char* type : {"TextString", "NumericOrString", "UTF16String", "FontName"})
      EXPECT_EQ(backFromText(type, text), std::string("'").append(text).append("'"));
  EXPECT_EQ(backFromText("UTF16String", "a\xFF"), "'a\uFFFD'");
  const auto access = accessOf("UTF16String");
  const OwnedValue value(access.dataType(),
                         access.fromText("a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"));
  EXPECT_EQ(access.toText(value.get()), "a\xE9\xAC\x34\x1E");
  EXPECT_EQ(asUTF16String("\xF0\x9D\x84\x9E"), (gui_objects::UTF16String{0xD834, 0xDD1E}));
  EXPECT_TRUE(asUTF16String(nullptr).empty() && asUTF16String("").empty());
}

TEST_F(Text, NumbersAreWrittenAsTheCLibraryWritesThem) {
  std::mt19937_64 random(5);
  test::Numbers numbers{1e5, 999999, 999999.5, 1e6, 123456.5, 1e-4, 9.99999e-5, -1e-5, 5e-324};
  for (int i = 0; i < 3000; ++i)
    numbers.push_back(std::ldexp(std::uniform_real_distribution(-1.0, 1.0)(random), i % 80 - 40));
  const ArrayOwner array = test::array(std::to_string(numbers.size()) + "x1 double", numbers);
  const NumericOrString value(array.get());
  const std::vector<gui_objects::UTF16String> lines = value.getUTF16String();
  ASSERT_EQ(lines.size(), numbers.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    char expected[32];
    std::snprintf(expected, sizeof expected, "%-*g", static_cast<int>(lines[i].size()), numbers[i]);
    EXPECT_EQ(fl::i18n::to_utf8(lines[i].data(), lines[i].size()), expected);
  }
  EXPECT_EQ(shown(NumericOrString(parseLiteral("int64(-9223372036854775807)").get()).getPtr()),
            "'-9.22337e+18'");
}

TEST_F(Text, LinesOfAllLengthsBecomeRows) {
  constexpr std::size_t kLongest = 150;
  std::string text;
  for (std::size_t i = 0; i <= kLongest; ++i)
    text += std::string(kLongest - i, static_cast<char>('a' + i % 26)) + (i < kLongest ? "\n" : "");
  const NumericOrString value(ArrayOwner(vxCreateString(text.c_str())).get());
  const auto lines = value.getUTF16String();
  ASSERT_EQ(lines.size(), kLongest + 1);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    gui_objects::UTF16String expected(kLongest - i, static_cast<vxChar>('a' + i % 26));
    expected.resize(kLongest, ' ');
    EXPECT_EQ(lines[i], expected) << i;
  }
  // A text of one dimension is a row like others in a longer list, and alone it is none.
  for (const std::size_t numbers : {1U, 2U}) {
    const ArrayOwner cells = test::array("1x2 cell");
    vxSetCell(cells.get(), 0, test::array("1x char 97").release());
    vxSetCell(cells.get(), 1, test::array(numbers == 1 ? "1x1 int8 5" : "1x2 int8 5 6").release());
    EXPECT_EQ(backFrom("NumericOrString", [&](auto& type) { return type.fromArray(cells.get()); }),
              numbers == 1 ? "datatypes:TextStringDataType:InvalidCellArray" : "{'a', '5', '6'}");
  }
}

TEST_F(Text, WhatNeedsNoChangeIsNeverCopied) {
  const auto dataOf = [](const vxArray* array) {
    return vxGetData(vxGetClassID(array) == vxCELL_CLASS ? vxGetCell(array, 0) : array);
  };
  for (const char* type : {"TextString", "NumericOrString"})
    for (const char* literal :
         {"'some text'", "['ab';'cd']", "{'line';'other'}", "reshape('abcd',2,1,2)",
          "{reshape('abcd',1,2,2)}", "{'a';[1 2]}"}) {
      const auto access = accessOf(type);
      const ArrayOwner array = parseLiteral(literal);
      if (type[0] == 'T' && test::outcomeOfArray(access, array.get()) != "no text") continue;
      const OwnedValue value(access.dataType(), access.fromArray(array.get()));
      EXPECT_EQ(dataOf(access.toArray(value.get()).get()), dataOf(array.get())) << type << literal;
    }
}

TEST_F(Text, EqualityAsksForTheLinesAndNotForTheirForm) {
  const std::tuple<const char*, const char*, const char*, bool> rows[] = {
      {"TextString", "['ab';'c ']", "{'ab';'c '}", true},
      {"TextString", "['ab';'c ']", "{'ab';'c'}", false},
      {"TextString", "{'ab';'c '}", "{'ab';'c'}", false},
      {"TextString", "['ab';'cd']", "['ab';'ce']", false},
      {"TextString", "['ab';'cd']", "['ab';'cd';'ef']", false},
      {"TextString", "'ab '", "'ab'", false},
      {"TextString", "'ab'", "'Ab'", false},
      {"TextString", "'ab'", "{'ab'}", true},
      {"TextString", "['a';'b']", "{'a';'b'}", true},
      {"TextString", "{['ab';'cd']}", "'acbd'", true},
      {"TextString", "{['ab';'cd']}", "{['ab';'cd']}", true},
      {"TextString", "cell(2,1)", "{'';''}", true},
      {"TextString", "{''}", "''", false},
      {"TextString", "{}", "''", true},
      {"TextString", "' '", "{''}", false},
      {"NumericOrString", "[1 22]", "['1 ';'22']", true},
      {"NumericOrString", "{1,22}", "{'1';'22'}", true},
      {"NumericOrString", "{1,22}", "[1 22]", false},
      {"UTF16String", "'ab'", "'aB'", false},
      {"CaseInsensitiveString", "'Left'", "'LEFT'", true},
      {"CaseInsensitiveString", "'Left'", "'Lefty'", false},
      {"CaseInsensitiveString", "char([201])", "char([233])", false},
      {"NStrings", "{'a'}", "'a'", true},
      {"NStrings", "{'a'}", "{'a';'a'}", false},
      {"FontName", "'Serif'", "'serif'", false},
      {"NLineStyles", "'-o|--'", "['-o';'--']", true},
      {"NLineStyles", "'-|:'", "['-';'|';':']", true},
      {"NLineStyles", "'-|:'", "{'-';':'}", false},
      {"NLineStyles", "{'-o'}", "{'o-'}", false},
      {"NLineStyles", "{'-','o'}", "{'-'}", false},
  };
  for (const auto& [type, left, right, areEqual] : rows) {
    const auto access = accessOf(type);
    const OwnedValue a(access.dataType(), access.fromArray(parseLiteral(left).get()));
    const OwnedValue b(access.dataType(), access.fromArray(parseLiteral(right).get()));
    EXPECT_EQ(access.dataType().isEqual(a.get(), b.get()), areEqual) << type << left << right;
    EXPECT_EQ(access.dataType().compare(b.get(), a.get()), areEqual ? 0 : 2)
        << type << left << right;
  }
  const vcos::COSDataType& font = accessOf("FontName").dataType();
  const COSValue empty = COSValue::fromPointer("");
  EXPECT_TRUE(font.isEqual(empty, {}));
  EXPECT_FALSE(font.isEqual({}, empty));
}

TEST_F(Text, EqualityGoesByTheLinesOfWhoeverOverridesThem) {
  struct Silent final : TextString {
    using TextString::TextString;
    std::vector<gui_objects::UTF16String> getUTF16String() const override { return {}; }
  };
  EXPECT_TRUE(Silent("a") == Silent("b"));
  EXPECT_FALSE(Silent("a") == TextString("a"));
  EXPECT_TRUE(TextString("a") == NumericOrString("a"));
}

TEST_F(Text, AComparisonThatFailsIsAnErrorOfItsType) {
  const std::pair<const char*, const char*> rows[] = {
      {"TextString", "VORTIL:datatypes:TextStringDataType:isEqual"},
      {"NumericOrString", "VORTIL:graphics::datatype::NumericOrStringDataType::isEqual"}};
  for (const auto& [type, identifier] : rows) {
    const auto access = accessOf(type);
    const OwnedValue a(access.dataType(), access.fromArray(parseLiteral("'a '").get()));
    const OwnedValue b(access.dataType(), access.fromArray(parseLiteral("{'a'}").get()));
    vghost::faults::failHostCall(1, vghost::faults::Repeat::Once);
    EXPECT_EQ(identifierRaisedBy([&] { access.dataType().isEqual(a.get(), b.get()); }), identifier);
    vghost::faults::disarm();
  }
}

TEST_F(Text, NullIsValidForTheValueAndRefusedByTheConstructor) {
  boost::shared_ptr<resource_core::BaseMsgID> message;
  EXPECT_TRUE(NumericOrString().isValid(nullptr, message) &&
              TextString().isValid(nullptr, message));
  EXPECT_FALSE(message);
  const vxArray* const null = nullptr;
  EXPECT_EQ(identifierRaisedBy([=] { NumericOrString{null}; }),
            "VORTIL:vg:datatypes:NumericOrStringDataType:ArrayClass");
  EXPECT_EQ(TextString(null).getPtr(), nullptr);
  EXPECT_FALSE(NumericOrString().isValid(parseLiteral("true").get(), message));
  EXPECT_STREQ(message->definition().identifier,
               "VORTIL:vg:datatypes:NumericOrStringDataType:ArrayClass");
  TextString text("a");
  text = TextString("b");
  text = *&text;
  EXPECT_EQ(shown(text.getPtr()), "'b'");
}

TEST_F(Text, WhoeverTakesATextOverFreesIt) {
  const std::size_t blocks = vghost::liveBlocks();
  const COSValue given = COSValue::fromPointer(utStrdup("Left"));
  const auto insensitive = accessOf("CaseInsensitiveString");
  EXPECT_EQ(insensitive.textConversion()->from(given), given);
  insensitive.dataType().destroy(given);
  const auto font = accessOf("FontName");
  const COSValue name = font.fromText("Serif");
  EXPECT_EQ(font.textConversion()->to(name), name);
  EXPECT_EQ(font.toText(name), "Serif");
  font.dataType().destroy(name);
  EXPECT_EQ(vghost::liveBlocks(), blocks);
}

TEST_F(Text, AListOfStylesLosesThemInAnAssignmentToItself) {
  NLineStyles styles({"--s", ":"});
  EXPECT_STREQ(styles.getStyles()[0].getString(), "--s");
  EXPECT_EQ(styles.getStyles()[0].getLineStyle() + " " + styles.getStyles()[0].getMarkerStyle(),
            "-- s");
  styles.copy(styles);
  EXPECT_EQ(styles.getStyles().size(), 4U);
  const NLineStyles cells(parseLiteral("{'-'}").get());
  styles.copy(cells);
  EXPECT_EQ(shown(ArrayOwner(styles.getMatrixRepresentation()).get()),
            "{'--s', ':', '--s', ':', '-'}");
  styles = *&styles;
  EXPECT_TRUE(styles.getStyles().empty() && styles == styles);
  EXPECT_EQ(vxGetClassID(ArrayOwner(styles.getMatrixRepresentation()).get()), vxCELL_CLASS);
  EXPECT_EQ(identifierRaisedBy([] { NLineStyles(std::vector<std::string>()); }),
            "VORTIL:vgdatatypes:NotEnoughStyles");
  EXPECT_EQ(identifierRaisedBy([] { NLineStyles({"-|:"}); }), kNoStyle);
  const NLineStyles single;
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(ArrayOwner(single.getMatrixRepresentation()),
               Lindgrove::System::OutOfMemoryException_DEPRECATED);
  vghost::faults::disarm();
}

}  // namespace
