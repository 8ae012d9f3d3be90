#pragma once

#include <tao/pegtl.hpp>

#include <cstddef>
#include <string_view>

/// The grammar of literals. After an opening bracket, brace or parenthesis nothing is tried twice,
/// so that reading takes time in proportion to the length.
namespace vgdt::grammar {

using namespace tao::pegtl;

struct Blanks : star<blank> {};
struct Space : star<one<' ', '\t', '\r', '\n'>> {};
struct Separation : plus<one<' ', '\t', '\r', '\n'>> {};
struct Comma : seq<Space, one<','>, Space> {};
struct Semicolon : seq<Space, one<';'>, Space> {};

struct WordStart : ranges<'A', 'Z', 'a', 'z', '_'> {};
struct WordRest : ranges<'A', 'Z', 'a', 'z', '0', '9', '_'> {};
struct Word : seq<WordStart, star<WordRest>> {};
template <class Text>
struct Keyword : seq<Text, not_at<WordRest>> {};

struct Digits : plus<digit> {};
struct Exponent : seq<one<'e', 'E'>, opt<one<'+', '-'>>, Digits> {};
struct Decimal
    : seq<sor<seq<Digits, opt<one<'.'>, opt<Digits>>>, seq<one<'.'>, Digits>>, opt<Exponent>> {};
struct NaN : Keyword<string<'N', 'a', 'N'>> {};
struct Inf : Keyword<string<'I', 'n', 'f'>> {};
struct Number : seq<opt<one<'+', '-'>>, sor<Decimal, NaN, Inf>> {};
struct FirstNumber : Number {};
struct LastNumber : Number {};
struct NumberOrRange : seq<FirstNumber, opt<Blanks, one<':'>, Blanks, must<LastNumber>>> {};

struct True : Keyword<string<'t', 'r', 'u', 'e'>> {};
struct False : Keyword<string<'f', 'a', 'l', 's', 'e'>> {};
struct Logical : sor<True, False> {};

struct ClosingQuote : one<'\''> {};
struct Text : seq<one<'\''>, star<sor<not_one<'\''>, two<'\''>>>, must<ClosingQuote>> {};

/// Elements separated by blanks or commas, rows by semicolons.
template <class Element>
struct Row : seq<Element, star<sor<seq<Comma, must<Element>>, seq<Separation, Element>>>> {};
/// Up to and with the closing bracket or brace.
template <class Row, class Closing>
struct Rows : sor<Closing, seq<must<Row>, star<Semicolon, must<Row>>, Space, must<Closing>>> {};

/// A run that is known as a whole, such as the name of an object, and that calls nothing.
template <bool isElement>
struct KnownWord {
  template <apply_mode, rewind_mode, template <class...> class, template <class...> class,
            class Input, class Builder>
  static bool match(Input& input, Builder& builder) {
    const std::size_t length = builder.knownWord({input.current(), input.size()}, isElement);
    input.bump(length);
    return length != 0;
  }
};

struct NumberElement : NumberOrRange {};
struct LogicalElement : Logical {};
struct TextElement : Text {};
struct Element : sor<KnownWord<true>, NumberElement, LogicalElement, TextElement> {};
struct BracketRow : Row<Element> {};
struct OpeningBracket : one<'['> {};
struct ClosingBracket : one<']'> {};
struct Bracket : seq<OpeningBracket, Space, Rows<BracketRow, ClosingBracket>> {};

struct Value;
struct CellRow : Row<Value> {};
struct OpeningBrace : one<'{'> {};
struct ClosingBrace : one<'}'> {};
struct Cell : seq<OpeningBrace, Space, Rows<CellRow, ClosingBrace>> {};

struct Function : Word {};
struct OpeningParenthesis : one<'('> {};
struct ClosingParenthesis : one<')'> {};
struct Arguments : opt<Value, star<Comma, must<Value>>> {};
struct Call : seq<Function, Blanks, must<OpeningParenthesis>, Space, Arguments, Space,
                  must<ClosingParenthesis>> {};

struct HandleName : seq<WordStart, star<sor<WordRest, one<'.'>>>> {};
struct Handle : seq<one<'@'>, must<HandleName>> {};
struct EmptyHandle : Keyword<TAO_PEGTL_STRING("empty_handle")> {};

struct NumberValue : NumberOrRange {};
struct LogicalValue : Logical {};
struct TextValue : Text {};
struct Value : sor<KnownWord<false>, NumberValue, LogicalValue, TextValue, Bracket, Cell, Handle,
                   EmptyHandle, Call> {};
struct End : eof {};
struct Literal : seq<Blanks, must<Value>, Blanks, must<End>> {};

}  // namespace vgdt::grammar
