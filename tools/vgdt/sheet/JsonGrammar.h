#pragma once

#include <tao/pegtl.hpp>

/// The grammar of JSON. A byte decides what comes next, so that nothing is tried twice.
namespace vgdt::json_grammar {

using namespace tao::pegtl;

struct Space : star<one<' ', '\t', '\n', '\r'>> {};
struct Comma : seq<Space, one<','>, Space> {};

struct Digits : plus<digit> {};
struct Whole : sor<one<'0'>, Digits> {};
struct Fraction : seq<one<'.'>, must<Digits>> {};
struct Exponent : seq<one<'e', 'E'>, opt<one<'+', '-'>>, must<Digits>> {};
struct Number : seq<sor<seq<one<'-'>, must<Whole>>, Whole>, opt<Fraction>, opt<Exponent>> {};

struct Plain : plus<ranges<' ', '!', '#', '[', ']', '\x7F'>> {};
struct Wide : utf8::range<0x80, 0x10FFFF> {};
struct Code : rep<4, xdigit> {};
struct Escaped : sor<one<'"', '\\', '/', 'b', 'f', 'n', 'r', 't'>, seq<one<'u'>, must<Code>>> {};
struct Escape : seq<one<'\\'>, must<Escaped>> {};
struct ClosingQuote : one<'"'> {};
struct Text : seq<one<'"'>, star<sor<Plain, Wide, Escape>>, must<ClosingQuote>> {};

struct Value;

struct OpeningBracket : one<'['> {};
struct ClosingBracket : one<']'> {};
struct Elements : seq<must<Value>, star<Comma, must<Value>>, Space> {};
struct List : seq<OpeningBracket, Space, sor<ClosingBracket, seq<Elements, must<ClosingBracket>>>> {
};

struct Key : Text {};
struct Colon : one<':'> {};
struct Member : seq<must<Key>, Space, must<Colon>, Space, must<Value>> {};
struct OpeningBrace : one<'{'> {};
struct ClosingBrace : one<'}'> {};
struct Members : seq<Member, star<Comma, Member>, Space> {};
struct Object : seq<OpeningBrace, Space, sor<ClosingBrace, seq<Members, must<ClosingBrace>>>> {};

struct True : string<'t', 'r', 'u', 'e'> {};
struct False : string<'f', 'a', 'l', 's', 'e'> {};
struct Null : string<'n', 'u', 'l', 'l'> {};
struct Value : sor<Text, Number, List, Object, True, False, Null> {};

struct End : eof {};
struct Document : seq<opt<utf8::bom>, Space, must<Value>, Space, must<End>> {};

}  // namespace vgdt::json_grammar
