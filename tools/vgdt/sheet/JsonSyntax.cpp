#include "sheet/JsonSyntax.h"

#include "requests/RequestParser.h"
#include "sheet/JsonGrammar.h"

#include <fmt/format.h>

namespace vgdt {
namespace {

namespace grammar = json_grammar;

/// What stands in the message when a rule that has to match does not.
template <class Rule>
constexpr const char* kExpected = nullptr;
template <>
constexpr auto kExpected<grammar::Value> = "expected a value";
template <>
constexpr auto kExpected<grammar::Key> = "expected the name of a member, in quotes (\")";
template <>
constexpr auto kExpected<grammar::Colon> = "expected a colon";
template <>
constexpr auto kExpected<grammar::ClosingBracket> = "expected a comma or ]";
template <>
constexpr auto kExpected<grammar::ClosingBrace> = "expected a comma or }";
template <>
constexpr auto kExpected<grammar::ClosingQuote> =
    "expected a closing quote (\"), or UTF-8 without control characters";
template <>
constexpr auto kExpected<grammar::Escaped> = "expected one of \"\\/bfnrtu behind the backslash";
template <>
constexpr auto kExpected<grammar::Code> = "expected four hexadecimal digits";
template <>
constexpr auto kExpected<grammar::Whole> = "expected a digit";
template <>
constexpr auto kExpected<grammar::Digits> = "expected a digit";
template <>
constexpr auto kExpected<grammar::End> = "expected the end of the file";

/// What of the text has been seen.
struct Progress {
  const char* begin;
  std::size_t depth = 0;

  std::size_t positionOf(const char* place) const {
    return static_cast<std::size_t>(place - begin);
  }
};

template <class Rule>
struct Control : tao::pegtl::normal<Rule> {
  template <class Input>
  [[noreturn]] static void raise(const Input& input, const Progress& progress) {
    static_assert(kExpected<Rule> != nullptr, "give the rule a text in kExpected");
    throw JsonError(progress.positionOf(input.current()), kExpected<Rule>);
  }
};

template <class Rule>
struct Action : tao::pegtl::nothing<Rule> {};

struct Opens {
  template <class Input>
  static void apply(const Input& input, Progress& progress) {
    if (++progress.depth > kMaxJsonDepth)
      throw JsonError(progress.positionOf(input.begin()),
                      fmt::format("nested more than {} deep", kMaxJsonDepth));
  }
};
struct Closes {
  static void apply0(Progress& progress) { --progress.depth; }
};

template <>
struct Action<grammar::OpeningBracket> : Opens {};
template <>
struct Action<grammar::OpeningBrace> : Opens {};
template <>
struct Action<grammar::ClosingBracket> : Closes {};
template <>
struct Action<grammar::ClosingBrace> : Closes {};

}  // namespace

void requireJson(std::string_view text) {
  using tao::pegtl::memory_input;
  using tao::pegtl::tracking_mode;
  const char* const end = text.data() + text.size();
  memory_input<tracking_mode::lazy> input(text.data(), end, "");
  Progress progress{text.data()};
  tao::pegtl::parse<grammar::Document, Action, Control>(input, progress);
}

}  // namespace vgdt
