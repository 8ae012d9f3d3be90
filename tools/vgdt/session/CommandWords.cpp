#include "session/CommandWords.h"

#include "literal/Literal.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace vgdt {

std::string_view withoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  text.remove_suffix(text.size() - (text.find_last_not_of(kBlanks) + 1));
  return text;
}

std::string_view withoutComment(std::string_view line) {
  bool isQuoted = false;
  const auto* const end = std::ranges::find_if(line, [&isQuoted](char byte) {
    if (byte == '\'') isQuoted = !isQuoted;
    return byte == '#' && !isQuoted;
  });
  return line.substr(0, static_cast<std::size_t>(end - line.begin()));
}

std::size_t endOfPiece(std::string_view text, std::string_view separators) {
  constexpr std::string_view kOpening = "([{";
  constexpr std::string_view kClosing = ")]}";
  const auto isOneOf = [](std::string_view bytes, char byte) {
    return bytes.find(byte) != bytes.npos;
  };
  bool isQuoted = false;
  std::size_t depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (text[i] == '#') {
      // A comment ends with its line, and so does what it leaves open.
      depth = 0;
      i = text.find('\n', i);
      if (i == text.npos) break;
    }
    if (depth == 0 && isOneOf(separators, text[i])) return i;
    if (isOneOf(kOpening, text[i])) ++depth;
    if (isOneOf(kClosing, text[i]) && depth > 0) --depth;
  }
  return text.size();
}

std::size_t argumentNumber(std::string_view word) {
  constexpr std::string_view kArgument = "arg";
  if (!word.starts_with(kArgument) || word.size() == kArgument.size()) return 0;
  const std::string_view digits = word.substr(kArgument.size());
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(digits.begin(), digits.end(), number);
  return digits.front() != '0' && error == std::errc() && end == digits.end() ? number : 0;
}

bool isReserved(std::string_view word) {
  return word == "source" || word == "event" || argumentNumber(word) > 0;
}

bool isBareWord(std::string_view text) {
  // Inside a word that is nothing but text, a semicolon has nothing to separate.
  const auto isEnd = [](char byte) {
    return byte != ';' && kWordEnds.find(byte) != kWordEnds.npos;
  };
  return !text.empty() && std::ranges::none_of(text, isEnd);
}

}  // namespace vgdt
