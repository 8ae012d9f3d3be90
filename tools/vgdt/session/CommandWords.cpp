#include "session/CommandWords.h"

#include "literal/Literal.h"

#include <algorithm>

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

bool isBareWord(std::string_view text) {
  // Inside a word that is nothing but text, a semicolon has nothing to separate.
  const auto isEnd = [](char byte) {
    return byte != ';' && kWordEnds.find(byte) != kWordEnds.npos;
  };
  return !text.empty() && std::ranges::none_of(text, isEnd);
}

}  // namespace vgdt
