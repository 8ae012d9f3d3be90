#include "sheet/JsonCursor.h"

#include "text/Utf8.h"

#include <vx/array.h>

#include <charconv>

namespace vgdt {
namespace {

/// Whether a number or word ends here.
constexpr bool isEnd(char byte) {
  return byte <= ' ' || byte == ',' || byte == ']' || byte == '}';
}

constexpr bool isAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

vxChar characterOf(char escapeLetter) {
  switch (escapeLetter) {
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return static_cast<vxChar>(escapeLetter);
  }
}

/// Reads the escape at the front of `raw`, which loses it.
vxChar takeEscape(std::string_view& raw) {
  vxChar unit = characterOf(raw[1]);
  const bool isCode = raw[1] == 'u';
  if (isCode) std::from_chars(raw.data() + 2, raw.data() + 6, unit, 16);
  raw.remove_prefix(isCode ? 6 : 2);
  return unit;
}

void append(char32_t character, fl::ustring& text) {
  if (character < 0x10000) return text.push_back(static_cast<vxChar>(character));
  text.push_back(static_cast<vxChar>(0xD7C0 + (character >> 10U)));
  text.push_back(static_cast<vxChar>(0xDC00 + (character & 0x3FFU)));
}

}  // namespace

std::string_view JsonCursor::skip() {
  const char* const begin = place_;
  switch (*place_) {
    case '"':
      string();
      break;
    case '{':
    case '[':
      skipContainer();
      break;
    default:
      while (!isEnd(*place_))
        ++place_;
  }
  return {begin, place_};
}

void JsonCursor::skipContainer() {
  std::size_t depth = 0;
  do {
    const char byte = *place_;
    if (byte == '"') {
      string();
      continue;
    }
    if (byte == '{' || byte == '[') ++depth;
    if (byte == '}' || byte == ']') --depth;
    ++place_;
  } while (depth != 0);
}

std::optional<JsonCursor> JsonCursor::find(std::string_view name) const {
  JsonCursor cursor = *this;
  for (bool hasMore = cursor.enter(); hasMore; hasMore = cursor.proceed()) {
    const JsonText text(cursor.memberName());
    if (text.utf8() == name) return cursor;
    cursor.skip();
  }
  return std::nullopt;
}

JsonCursor valueOf(std::string_view json) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (json.starts_with(kByteOrderMark)) json.remove_prefix(kByteOrderMark.size());
  while (JsonCursor::isSpace(json.front()))
    json.remove_prefix(1);
  return JsonCursor(json.data());
}

JsonText::JsonText(std::string_view raw) : utf8_(raw) {
  if (raw.find('\\') == raw.npos) return;
  fl::ustring units;
  readUtf16(raw, units);
  decoded_ = fl::i18n::to_utf8(units.data(), units.size());
  utf8_ = decoded_;
}

void readUtf16(std::string_view raw, fl::ustring& text) {
  text.clear();
  text.reserve(raw.size());
  while (!raw.empty()) {
    if (raw.front() == '\\') {
      text.push_back(takeEscape(raw));
    } else if (isAscii(raw.front())) {
      text.push_back(static_cast<vxChar>(raw.front()));
      raw.remove_prefix(1);
    } else {
      const auto [character, length] = firstCharacter(raw);
      append(character, text);
      raw.remove_prefix(length);
    }
  }
}

}  // namespace vgdt
