#include "requests/JsonWriter.h"

#include "text/Utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace vgdt {
namespace {

constexpr std::size_t kMaxDigits = 64;

/// Whether a byte stands for itself in a JSON text.
constexpr bool isPlain(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x20 && value < 0x80 && byte != '"' && byte != '\\';
}

constexpr bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// The letter behind the backslash; NUL if there is none for the character.
char escapeLetter(char32_t character) {
  switch (character) {
    case '\b':
      return 'b';
    case '\t':
      return 't';
    case '\n':
      return 'n';
    case '\f':
      return 'f';
    case '\r':
      return 'r';
    case '"':
    case '\\':
      return static_cast<char>(character);
    default:
      return '\0';
  }
}

}  // namespace

void JsonWriter::put(char byte) {
  if (length_ == buffer_.size()) flush();
  buffer_[length_++] = byte;
}

void JsonWriter::put(std::string_view bytes) {
  if (bytes.size() > buffer_.size() - length_) {
    flush();
    if (bytes.size() > buffer_.size()) {
      output_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
      return;
    }
  }
  std::memcpy(buffer_.data() + length_, bytes.data(), bytes.size());
  length_ += bytes.size();
}

void JsonWriter::put(char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  if (const char letter = escapeLetter(character)) {
    put('\\');
    put(letter);
  } else if (character < 0x20) {
    put(std::string_view("\\u00"));
    put(kDigits[character >> 4U]);
    put(kDigits[character & 0xFU]);
  } else {
    put(Utf8Bytes(character));
  }
}

void JsonWriter::flush() {
  output_.write(buffer_.data(), static_cast<std::streamsize>(length_));
  length_ = 0;
}

void JsonWriter::endLine() {
  put('\n');
  flush();
  output_.flush();
  needsComma_ = false;
}

void JsonWriter::beginValue() {
  if (needsComma_) put(',');
  needsComma_ = true;
}

void JsonWriter::open(char bracket) {
  beginValue();
  put(bracket);
  needsComma_ = false;
}

void JsonWriter::close(char bracket) {
  put(bracket);
  needsComma_ = true;
}

void JsonWriter::key(std::string_view name) {
  text(name);
  put(':');
  needsComma_ = false;
}

void JsonWriter::token(std::string_view json) {
  beginValue();
  put(json);
}

void JsonWriter::whole(std::uint64_t value) {
  char digits[kMaxDigits];
  token({digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr});
}

void JsonWriter::whole(std::int64_t value) {
  char digits[kMaxDigits];
  token({digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr});
}

void JsonWriter::number(double value) {
  constexpr double kIntegersEnd = 0x1p53;
  if (std::isnan(value)) return token("\"NaN\"");
  if (std::isinf(value)) return token(value < 0 ? "\"-Inf\"" : "\"Inf\"");
  const bool negativeZero = value == 0 && std::signbit(value);
  if (std::trunc(value) == value && std::abs(value) < kIntegersEnd && !negativeZero)
    return whole(static_cast<std::int64_t>(value));
  // Replies have always been written with the digits of this JSON library. std::to_chars would
  // choose others for some numbers, although both read back to the same bits.
  char digits[kMaxDigits];
  token({digits, nlohmann::detail::to_chars(std::begin(digits), std::end(digits), value)});
}

void JsonWriter::number(float value) {
  if (!std::isfinite(value)) return number(static_cast<double>(value));
  char digits[kMaxDigits];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  double shortest = 0;
  std::from_chars(digits, end, shortest);
  number(shortest);
}

void JsonWriter::text(std::string_view utf8) {
  beginValue();
  put('"');
  while (!utf8.empty()) {
    const auto* const end = std::find_if_not(utf8.begin(), utf8.end(), isPlain);
    const auto plain = static_cast<std::size_t>(end - utf8.begin());
    put(utf8.substr(0, plain));
    utf8.remove_prefix(plain);
    if (utf8.empty()) break;
    const auto [character, length] = firstCharacter(utf8);
    put(character);
    utf8.remove_prefix(length);
  }
  put('"');
}

void JsonWriter::text(const unsigned short* units, std::size_t count, std::size_t step) {
  beginValue();
  put('"');
  for (std::size_t i = 0; i < count; ++i) {
    char32_t character = units[i * step];
    const char32_t next = i + 1 < count ? units[(i + 1) * step] : 0;
    if (isHighSurrogate(character) && isLowSurrogate(next)) {
      character = 0x10000 + ((character - 0xD800) << 10U) + (next - 0xDC00);
      ++i;
    } else if (isHighSurrogate(character) || isLowSurrogate(character)) {
      character = kReplacementCharacter;
    }
    put(character);
  }
  put('"');
}

}  // namespace vgdt
