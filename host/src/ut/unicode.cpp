#include "../messages/utf.h"

#include <ut/memory.h>
#include <ut/unicode.h>

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
