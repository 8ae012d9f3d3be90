#include "../messages/utf.h"

#include <ut/memory.h>
#include <ut/unicode.h>

#include <algorithm>
#include <string_view>

unsigned short* utf8_to_utf16(const char* text, int length) noexcept {
  if (!text) return nullptr;
  const std::string_view utf8 = length < 0
                                    ? std::string_view(text)
                                    : std::string_view(text, static_cast<std::size_t>(length));
  const std::size_t units = vghost::utf::utf16Length(utf8);
  auto* const utf16 = static_cast<unsigned short*>(utMalloc((units + 1) * sizeof(unsigned short)));
  if (!utf16) return nullptr;
  vghost::utf::writeUtf16(utf8, utf16);
  utf16[units] = 0;
  return utf16;
}

bool vghost::isControl(char32_t character) noexcept {
  struct Range {
    char32_t first;
    char32_t last;
  };
  static constexpr Range kControls[] = {
      {0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C},
      {0x200E, 0x200F}, {0x202A, 0x202E}, {0x2066, 0x2069},
  };
  return std::ranges::any_of(kControls, [character](const Range& range) {
    return range.first <= character && character <= range.last;
  });
}
