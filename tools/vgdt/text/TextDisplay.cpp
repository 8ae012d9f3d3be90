#include "text/TextDisplay.h"

#include <messages/ustring.h>

#include <algorithm>

namespace vgdt {
namespace {

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
    {0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
};

template <std::size_t count>
bool isIn(const CodeRange (&ranges)[count], char32_t character) {
  return std::ranges::any_of(ranges, [character](const CodeRange& range) {
    return range.first <= character && character <= range.last;
  });
}

std::size_t widthOf(char32_t character) {
  if (isIn(kWithoutWidth, character)) return 0;
  return isIn(kWide, character) ? 2 : 1;
}

/// Bytes of the character that begins a valid UTF-8 text.
std::size_t lengthOfFirst(std::string_view utf8) {
  const auto* const end = std::find_if_not(utf8.begin() + 1, utf8.end(), isContinuation);
  return static_cast<std::size_t>(end - utf8.begin());
}

std::size_t widthOfFirst(std::string_view utf8) {
  const std::size_t length = lengthOfFirst(utf8);
  const auto lead = static_cast<unsigned char>(utf8.front());
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (const char byte : utf8.substr(1, length - 1))
    character = character << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  return widthOf(character);
}

/// Bytes at the front of a valid UTF-8 text that take up to `width` columns.
std::size_t lengthWithin(std::string_view utf8, std::size_t width) {
  std::size_t length = 0;
  while (length < utf8.size()) {
    const std::string_view rest = utf8.substr(length);
    const std::size_t columns = widthOfFirst(rest);
    if (columns > width) break;
    width -= columns;
    length += lengthOfFirst(rest);
  }
  return length;
}

std::string printable(std::string_view text) {
  std::string result = validUtf8(text);
  std::ranges::replace_if(
      result, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
  return result;
}

std::string cutEnd(std::string text, std::size_t width) {
  if (displayWidth(text) <= width) return text;
  return text.substr(0, lengthWithin(text, width - kCut.size())).append(kCut);
}

std::string cutFront(const std::string& text, std::size_t width) {
  const std::size_t columns = displayWidth(text);
  if (columns <= width) return text;
  std::size_t begin = lengthWithin(text, columns - width + kCut.size());
  return std::string(kCut) + text.substr(begin);
}

}  // namespace

std::string validUtf8(std::string_view text) {
  const fl::ustring units = fl::i18n::to_ustring(text);
  return fl::i18n::to_utf8(units.data(), units.size());
}

std::size_t displayWidth(std::string_view utf8) {
  std::size_t width = 0;
  for (; !utf8.empty(); utf8.remove_prefix(lengthOfFirst(utf8)))
    width += widthOfFirst(utf8);
  return width;
}

std::string onOneLine(std::string_view text, std::size_t width) {
  return cutEnd(printable(text), width);
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
  const std::string before =
      cutFront(printable(head.substr(head.find_last_of('\n') + 1)), kColumnsBefore);
  const std::string after = cutEnd(printable(tail.substr(0, tail.find('\n'))), kColumnsAfter);
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
