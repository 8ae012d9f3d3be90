#include "session/Usage.h"

#include "Errors.h"
#include "session/CommandWords.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace vgdt {
namespace {

constexpr std::array<std::string_view, 6> kValues = {"VALUE", "NUMBER", "N", "CODE", "ID", "TEXT"};

bool isValue(std::string_view word) {
  return std::ranges::find(kValues, word) != kValues.end();
}
bool isChoice(std::string_view word) {
  return word.find('|') != word.npos;
}
bool isPlaceholder(std::string_view word) {
  return word.front() >= 'A' && word.front() <= 'Z';
}

std::string_view takeFront(std::string_view& text, std::size_t length) {
  const std::string_view front = text.substr(0, length);
  text = withoutBlanks(text.substr(front.size()));
  return front;
}

/// Cuts the first word, and what separates it from the next, off the front of a text. Beside the
/// sign "=", words need no blanks.
std::string_view takeWord(std::string_view& text, bool endsAtEqualsSign) {
  std::size_t length = text.find_first_of(kBlanks);
  if (endsAtEqualsSign) length = std::min(length, std::max<std::size_t>(text.find('='), 1));
  return takeFront(text, length);
}

struct UsageWord {
  std::string_view text;
  bool isOptional;   ///< it and all that follow may be left out
  bool isSkippable;  ///< it alone may be left out
};

std::vector<UsageWord> wordsOf(std::string_view usage) {
  std::vector<UsageWord> words;
  while (!usage.empty()) {
    std::string_view word = takeWord(usage, false);
    const bool isOptional = word.front() == '[';
    if (isOptional) word.remove_prefix(1);
    const bool isSkippable = isOptional && word.back() == ']' && !isPlaceholder(word);
    while (word.back() == ']')
      word.remove_suffix(1);
    words.push_back({word, isOptional, isSkippable});
  }
  return words;
}

bool fits(std::string_view word, std::string_view usageWord) {
  if (isPlaceholder(usageWord)) return true;
  const auto choices = choicesOf(usageWord);
  return std::ranges::find(choices, word) != choices.end();
}

}  // namespace

std::vector<std::string_view> choicesOf(std::string_view usageWord) {
  std::vector<std::string_view> choices;
  for (std::size_t begin = 0; begin <= usageWord.size();) {
    const std::size_t end = std::min(usageWord.find('|', begin), usageWord.size());
    choices.push_back(usageWord.substr(begin, end - begin));
    begin = end + 1;
  }
  return choices;
}

/// How far a command follows a usage.
struct Usage::Walk {
  Arguments arguments;
  std::vector<UsageWord> words;
  std::size_t place = 0;             ///< of the word of the usage that is reached
  std::string_view unexpected = {};  ///< what stands in its place; empty at the end of the command
};

Usage::Walk Usage::walk(std::string_view command) const {
  Walk walk{.arguments = {}, .words = wordsOf(text_)};
  std::string_view rest = withoutBlanks(command);
  for (; walk.place < walk.words.size() && !rest.empty(); ++walk.place) {
    const auto [expected, isOptional, isSkippable] = walk.words[walk.place];
    const bool isLast = walk.place + 1 == walk.words.size();
    const bool isBeforeSign = !isLast && walk.words[walk.place + 1].text == "=";
    if (isValue(expected)) {
      walk.arguments.push_back(isLast ? std::exchange(rest, {})
                                      : takeFront(rest, endOfPiece(rest, kBlanks)));
      continue;
    }
    if (isSkippable && rest.substr(0, rest.find_first_of(kBlanks)) != expected) {
      walk.arguments.emplace_back();
      continue;
    }
    const std::string_view word = takeWord(rest, isBeforeSign || expected == "=");
    if (!fits(word, expected)) {
      walk.unexpected = word;
      return walk;
    }
    if (isPlaceholder(expected) || isChoice(expected) || isSkippable)
      walk.arguments.push_back(word);
  }
  walk.unexpected = rest;
  return walk;
}

Arguments Usage::match(std::string_view command, bool hasComment) const {
  Walk reached = walk(command);
  const bool isAtEnd = reached.place == reached.words.size();
  const UsageWord next = isAtEnd ? UsageWord{} : reached.words[reached.place];
  if (!reached.unexpected.empty())
    throw RequestError(
        isAtEnd ? fmt::format("\"{}\" is too much: {}", shortened(reached.unexpected), text_)
                : fmt::format("\"{}\" stands where {} is expected: {}",
                              shortened(reached.unexpected), next.text, text_));
  if (isAtEnd || next.isOptional) return std::move(reached.arguments);
  throw RequestError(
      fmt::format("{} is missing: {}{}", next.text, text_,
                  hasComment ? "; a comment begins with # unless that stands in quotes" : ""));
}

Usage::Place Usage::placeBehind(std::string_view beginning) const {
  Walk reached = walk(beginning);
  const bool isAtEnd = reached.place == reached.words.size();
  if (!reached.unexpected.empty()) return {};
  if (!isAtEnd) return {reached.words[reached.place].text, std::move(reached.arguments)};
  if (!isValue(reached.words.back().text)) return {};
  return {reached.words.back().text, std::move(reached.arguments)};
}

}  // namespace vgdt
