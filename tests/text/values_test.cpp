// What the types of text take, and what they make of it.

#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
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
#include <fstream>
#include <random>
#include <string>
#include <utility>
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

/// What goes back from the value that a type makes of an array or a text, or what is raised.
template <class Make>
std::string backFrom(const std::string& type, Make&& make) {
  const vcos::TypeAccess access = accessOf(type);
  std::string words;
  const std::string raised = identifierRaisedBy([&] {
    const OwnedValue value(access.dataType(), make(access));
    const ArrayOwner array = access.toArray(value.get());
    words = array ? vgdt::formatLiteral(array.get()) : "null";
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

/// Whether the values of two arrays are equal, in either order.
std::string comparison(const std::string& type, const std::string& left, const std::string& right) {
  const auto access = accessOf(type);
  const auto& dataType = access.dataType();
  const OwnedValue a(dataType, access.fromArray(parseLiteral(left).get()));
  const OwnedValue b(dataType, access.fromArray(parseLiteral(right).get()));
  EXPECT_EQ(dataType.compare(b.get(), a.get()), dataType.isEqual(a.get(), b.get()) ? 0 : 2);
  return dataType.isEqual(a.get(), b.get()) ? "==" : "!=";
}

TEST_F(Text, ArraysAndTextsBecomeValuesOrAreRefused) {
  std::ifstream table(VGDT_TEXT_VALUES);
  int rows = 0;
  for (std::string line; std::getline(table, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    ++rows;
    const std::size_t blank = line.find(' ');
    const std::size_t place = line.find_first_of("<=!");
    const std::string type = line.substr(0, blank);
    const std::string first = line.substr(blank + 1, place - blank - 2);
    const std::string sign = line.substr(place, 2);
    std::string given = line.substr(std::min(place + 3, line.size())).append(" ~ ");
    for (std::size_t end = 0; (end = given.find(" ~ ")) != given.npos; given.erase(0, end + 3)) {
      const std::string one = given.substr(0, end);
      if (sign[0] == '<')
        EXPECT_EQ(sign == "<-" ? backFromArray(type, one) : backFromText(type, one), first)
            << type << " " << one;
      else
        EXPECT_EQ(comparison(type, first, one), sign) << line;
    }
  }
  EXPECT_GT(rows, 80);
  const vcos::COSDataType& font = accessOf("FontName").dataType();
  const COSValue empty = COSValue::fromPointer("");
  EXPECT_TRUE(font.isEqual(empty, {}));
  EXPECT_FALSE(font.isEqual({}, empty));
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
  for (const char* type : {"TextString", "NumericOrString", "UTF16String", "FontName"}) {
    EXPECT_EQ(backFromText(type, "a\nb"), "char([97 10 98])");
    EXPECT_EQ(backFromText(type, "\U0001D11E\xFF"), "'\U0001D11E\uFFFD'");
  }
  const auto access = accessOf("UTF16String");
  const OwnedValue value(access.dataType(),
                         access.fromText("a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"));
  EXPECT_EQ(access.toText(value.get()), "a\xE9\xAC\x34\x1E");
  EXPECT_EQ(asUTF16String("\xF0\x9D\x84\x9E"), (gui_objects::UTF16String{0xD834, 0xDD1E}));
  EXPECT_TRUE(asUTF16String(nullptr).empty());
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
  EXPECT_EQ(vgdt::formatLiteral(
                NumericOrString(parseLiteral("int64(-9223372036854775807)").get()).getPtr()),
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
              numbers == 1 ? "datatypes:TextStringDataType:InvalidCellArray" : "{'a'; '5'; '6'}");
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
  EXPECT_EQ(vgdt::formatLiteral(text.getPtr()), "'b'");
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
  EXPECT_EQ(vgdt::formatLiteral(ArrayOwner(styles.getMatrixRepresentation()).get()),
            "{'--s'; ':'; '--s'; ':'; '-'}");
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
