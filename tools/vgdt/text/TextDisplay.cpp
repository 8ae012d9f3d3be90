#include "text/TextDisplay.h"

#include "text/Utf8.h"

#include <fmt/format.h>
#include <ut/unicode.h>

#include <algorithm>

namespace vgdt {
namespace {

using vghost::isControl;

constexpr std::string_view kCut = "...";

bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

struct CodeRange {
  char32_t first;
  char32_t last;
};

// The blocks that matter from Unicode's East Asian width and combining properties.
constexpr CodeRange kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},   {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};
constexpr CodeRange kWithoutWidth[] = {
    {0x0300, 0x036F}, {0x200B, 0x200D}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
};

template <std::size_t count>
bool isIn(const CodeRange (&ranges)[count], char32_t character) {
  return std::ranges::any_of(ranges, [character](const CodeRange& range) {
    return range.first <= character && character <= range.last;
  });
}

std::string escaped(char32_t control) {
  switch (control) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return control < 0x80 ? fmt::format("\\x{:02x}", unsigned{control})
                            : fmt::format("\\u{:04x}", unsigned{control});
  }
}

std::size_t widthOf(char32_t character) {
  if (isControl(character)) return escaped(character).size();
  if (isIn(kWithoutWidth, character)) return 0;
  return isIn(kWide, character) ? 2 : 1;
}

/// Bytes at the front of a text that take up to `width` columns.
std::size_t lengthWithin(std::string_view text, std::size_t width) {
  std::size_t length = 0;
  while (length < text.size()) {
    const auto next = firstCharacter(text.substr(length));
    const std::size_t columns = widthOf(next.character);
    if (columns > width) break;
    width -= columns;
    length += next.length;
  }
  return length;
}

std::string validUtf8(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto next = firstCharacter(text);
    result += Utf8Bytes(next.character);
    text.remove_prefix(next.length);
  }
  return result;
}

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto [character, length] = firstCharacter(text);
    if (isControl(character))
      result += escaped(character);
    else
      result += Utf8Bytes(character);
    text.remove_prefix(length);
  }
  return result;
}

/// What of a text fits, and "..." if that is not all.
struct Cut {
  std::string_view kept;
  std::string_view mark;
};

Cut cutEnd(std::string_view text, std::size_t width) {
  if (displayWidth(text) <= width) return {text, ""};
  return {text.substr(0, lengthWithin(text, width - kCut.size())), kCut};
}

/// At most `width` columns: an escape or a wide character stays whole or goes.
Cut cutFront(std::string_view text, std::size_t width) {
  std::size_t columns = displayWidth(text);
  if (columns <= width) return {text, ""};
  while (columns > width - kCut.size()) {
    const auto [character, length] = firstCharacter(text);
    columns -= widthOf(character);
    text.remove_prefix(length);
  }
  return {text, kCut};
}

}  // namespace

std::string shortened(std::string_view text) {
  const auto [kept, mark] = cutEnd(text, kMaxQuoted);
  return validUtf8(kept).append(mark);
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const auto [character, length] = firstCharacter(text);
    width += widthOf(character);
    text.remove_prefix(length);
  }
  return width;
}

std::string onOneLine(std::string_view text, std::size_t width) {
  const auto [kept, mark] = cutEnd(text, width);
  return printable(kept).append(mark);
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t taken = displayWidth(text);
  if (taken < width) text.append(width - taken, ' ');
  return text;
}

std::size_t columnOf(std::string_view text, std::size_t position) {
  const auto continuations = std::ranges::count_if(text.substr(0, position), isContinuation);
  return position - static_cast<std::size_t>(continuations) + 1;
}

std::string caretDisplay(std::string_view text, std::size_t position) {
  constexpr std::size_t kColumnsBefore = 44;
  constexpr std::size_t kColumnsAfter = 26;
  const std::string_view head = text.substr(0, position);
  const std::string_view tail = text.substr(position);
  const auto [kept, mark] = cutFront(head.substr(head.find_last_of('\n') + 1), kColumnsBefore);
  const std::string before = std::string(mark) + printable(kept);
  const std::string after = onOneLine(tail.substr(0, tail.find('\n')), kColumnsAfter);
  return before + after + '\n' + std::string(displayWidth(before), ' ') + '^';
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return result;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace vgdt
