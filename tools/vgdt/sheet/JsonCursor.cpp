#include "sheet/JsonCursor.h"

#include "text/Utf8.h"

#include <vx/array.h>

#include <charconv>

namespace vgdt {
namespace {

constexpr bool isSpace(char byte) {
  return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

/// Of a number or word.
constexpr bool isEnd(char byte) {
  return isSpace(byte) || byte == ',' || byte == ']' || byte == '}' || byte == '\0';
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

JsonCursor::Kind JsonCursor::kind() const {
  switch (*place_) {
    case '{':
      return Kind::Object;
    case '[':
      return Kind::List;
    case '"':
      return Kind::String;
    case 't':
    case 'f':
      return Kind::Boolean;
    case 'n':
      return Kind::Null;
    default:
      return Kind::Number;
  }
}

std::string_view JsonCursor::string() {
  const char* const begin = ++place_;
  while (*place_ != '"')
    place_ += *place_ == '\\' ? 2 : 1;
  return {begin, place_++};
}

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

void JsonCursor::skipSpace() {
  while (isSpace(*place_))
    ++place_;
}

bool JsonCursor::enter() {
  ++place_;
  skipSpace();
  if (*place_ != '}' && *place_ != ']') return true;
  ++place_;
  return false;
}

bool JsonCursor::proceed() {
  skipSpace();
  if (*place_++ != ',') return false;
  skipSpace();
  return true;
}

std::string_view JsonCursor::memberName() {
  const std::string_view name = string();
  skipSpace();
  ++place_;  // the colon
  skipSpace();
  return name;
}

std::optional<JsonCursor> JsonCursor::find(std::string_view name) const {
  JsonCursor cursor = *this;
  for (bool hasMore = cursor.enter(); hasMore; hasMore = cursor.proceed()) {
    if (JsonText(cursor.memberName()).utf8() == name) return cursor;
    cursor.skip();
  }
  return std::nullopt;
}

JsonCursor valueOf(std::string_view json) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (json.starts_with(kByteOrderMark)) json.remove_prefix(kByteOrderMark.size());
  while (isSpace(json.front()))
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
