#include "utf.h"

#include <messages/ustring.h>

namespace fl::i18n {

ustring to_ustring(std::string_view utf8) {
  ustring text(vghost::utf::utf16Length(utf8), 0);
  vghost::utf::writeUtf16(utf8, text.data());
  return text;
}

std::string to_utf8(const unsigned short* text, std::size_t length) {
  std::string utf8(vghost::utf::utf8Length(text, length), '\0');
  vghost::utf::writeUtf8(text, length, utf8.data());
  return utf8;
}

}  // namespace fl::i18n
