#include "literal/Literal.h"

#include "literal/LiteralBuilder.h"
#include "literal/LiteralGrammar.h"

#include <fmt/format.h>
#include <tao/pegtl.hpp>

namespace vgdt {
namespace {

/// What stands in the message when a rule that has to match does not.
template <class Rule>
constexpr const char* kExpected = nullptr;
template <>
constexpr auto kExpected<grammar::Value> = "expected a value";
template <>
constexpr auto kExpected<grammar::CellRow> = "expected an element";
template <>
constexpr auto kExpected<grammar::BracketRow> = "expected a number, a logical or a text";
template <>
constexpr auto kExpected<grammar::Element> = "expected a number, a logical or a text";
template <>
constexpr auto kExpected<grammar::LastNumber> = "expected the number at which the range ends";
template <>
constexpr auto kExpected<grammar::ClosingQuote> = "expected a closing quote (')";
template <>
constexpr auto kExpected<grammar::ClosingBracket> = "expected a blank, a comma, a semicolon or ]";
template <>
constexpr auto kExpected<grammar::ClosingBrace> = "expected a blank, a comma, a semicolon or }";
template <>
constexpr auto kExpected<grammar::OpeningParenthesis> = "expected (";
template <>
constexpr auto kExpected<grammar::ClosingParenthesis> = "expected a comma or )";
template <>
constexpr auto kExpected<grammar::HandleName> = "expected the name of a function";
template <>
constexpr auto kExpected<grammar::End> = "expected the end of the literal";

template <class Rule>
struct Control : tao::pegtl::normal<Rule> {
  template <class Input>
  [[noreturn]] static void raise(const Input& input, const LiteralBuilder& builder) {
    static_assert(kExpected<Rule> != nullptr, "give the rule a text in kExpected");
    throw LiteralError(builder.positionOf(input.current()), kExpected<Rule>);
  }
};

template <class Rule>
struct Action : tao::pegtl::nothing<Rule> {};

/// Hands the matched text to an operation of the builder.
template <auto operation>
struct Calls {
  template <class Input>
  static void apply(const Input& input, LiteralBuilder& builder) {
    (builder.*operation)(input.string_view());
  }
};

template <>
struct Action<grammar::FirstNumber> : Calls<&LiteralBuilder::firstNumber> {};
template <>
struct Action<grammar::LastNumber> : Calls<&LiteralBuilder::lastNumber> {};
template <>
struct Action<grammar::NumberValue> : Calls<&LiteralBuilder::numberValue> {};
template <>
struct Action<grammar::LogicalValue> : Calls<&LiteralBuilder::logicalValue> {};
template <>
struct Action<grammar::TextValue> : Calls<&LiteralBuilder::textValue> {};
template <>
struct Action<grammar::Handle> : Calls<&LiteralBuilder::handleValue> {};
template <>
struct Action<grammar::EmptyHandle> : Calls<&LiteralBuilder::emptyHandleValue> {};
template <>
struct Action<grammar::NumberElement> : Calls<&LiteralBuilder::numberElement> {};
template <>
struct Action<grammar::LogicalElement> : Calls<&LiteralBuilder::logicalElement> {};
template <>
struct Action<grammar::TextElement> : Calls<&LiteralBuilder::textElement> {};
template <>
struct Action<grammar::BracketRow> : Calls<&LiteralBuilder::bracketRow> {};
template <>
struct Action<grammar::OpeningBracket> : Calls<&LiteralBuilder::openBracket> {};
template <>
struct Action<grammar::Bracket> : Calls<&LiteralBuilder::closeBracket> {};
template <>
struct Action<grammar::CellRow> : Calls<&LiteralBuilder::cellRow> {};
template <>
struct Action<grammar::OpeningBrace> : Calls<&LiteralBuilder::openCell> {};
template <>
struct Action<grammar::Cell> : Calls<&LiteralBuilder::closeCell> {};
template <>
struct Action<grammar::Function> : Calls<&LiteralBuilder::openCall> {};
template <>
struct Action<grammar::Call> : Calls<&LiteralBuilder::closeCall> {};

/// Whether no more than `depth` cell arrays and structs stand inside each other.
bool nestsWithin(std::size_t depth, const vxArray* array) {
  const bool isCell = array && vxGetClassID(array) == vxCELL_CLASS;
  const int fields = array ? vxGetNumberOfFields(array) : 0;
  if (!isCell && fields == 0) return true;
  if (depth == 0) return false;
  const std::size_t count = vxGetNumberOfElements(array);
  for (std::size_t i = 0; i < count; ++i) {
    if (isCell && !nestsWithin(depth - 1, vxGetCell(array, i))) return false;
    for (int field = 0; field < fields; ++field)
      if (!nestsWithin(depth - 1, vxGetFieldByNumber(array, i, field))) return false;
  }
  return true;
}

}  // namespace

vcos::ArrayOwner parseLiteral(std::string_view literal, const WordResolver& words) {
  using tao::pegtl::memory_input;
  using tao::pegtl::tracking_mode;
  memory_input<tracking_mode::lazy> input(literal.data(), literal.data() + literal.size(), "");
  LiteralBuilder builder(literal, words);
  tao::pegtl::parse<grammar::Literal, Action, Control>(input, builder);
  vcos::ArrayOwner array = builder.result();
  if (words && !nestsWithin(kMaxLiteralDepth, array.get()))
    throw LiteralError(0, fmt::format("the value is nested deeper than {}", kMaxLiteralDepth));
  return array;
}

}  // namespace vgdt
