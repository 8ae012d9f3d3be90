#include "utf.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace vghost::utf {
namespace {

/// Calls `visit` with each character; ASCII takes the short way.
template <class Visit>
void forEachCharacter(std::string_view utf8, Visit&& visit) noexcept {
  const auto* bytes = reinterpret_cast<const unsigned char*>(utf8.data());
  const std::size_t size = utf8.size();
  for (std::size_t i = 0; i < size;) {
    UChar32 character = bytes[i];
    if (character < 0x80)
      ++i;
    else
      U8_NEXT_OR_FFFD(bytes, i, size, character);
    visit(character);
  }
}

template <class Visit>
void forEachCharacter(const unsigned short* text, std::size_t length, Visit&& visit) noexcept {
  for (std::size_t i = 0; i < length;) {
    UChar32 character = text[i];
    if (character < 0x80)
      ++i;
    else
      U16_NEXT_OR_FFFD(text, i, length, character);
    visit(character);
  }
}

}  // namespace

std::size_t utf16Length(std::string_view utf8) noexcept {
  std::size_t length = 0;
  forEachCharacter(utf8, [&](UChar32 character) { length += U_IS_BMP(character) ? 1U : 2U; });
  return length;
}

void writeUtf16(std::string_view utf8, unsigned short* output) noexcept {
  forEachCharacter(utf8, [&](UChar32 character) {
    if (U_IS_BMP(character)) {
      *output++ = static_cast<unsigned short>(character);
    } else {
      *output++ = U16_LEAD(character);
      *output++ = U16_TRAIL(character);
    }
  });
}

std::size_t utf8Length(const unsigned short* text, std::size_t length) noexcept {
  std::size_t size = 0;
  forEachCharacter(text, length, [&](UChar32 character) {
    size += static_cast<std::size_t>(U8_LENGTH(character));
  });
  return size;
}

void writeUtf8(const unsigned short* text, std::size_t length, char* output) noexcept {
  forEachCharacter(text, length, [&](UChar32 character) {
    std::size_t count = 0;
    U8_APPEND_UNSAFE(output, count, character);
    output += count;
  });
}

}  // namespace vghost::utf
