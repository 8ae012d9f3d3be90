#pragma once

/// Texts of users are compared in lower case, byte by byte.

#include <cctype>

namespace graphics::datatype {

/// As tolower(), which is called only for a byte that may be a capital letter in some locale.
inline char lowerCased(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const bool mayBeCapital = (byte >= 'A' && byte <= 'Z') || byte >= 0x80;
  return mayBeCapital ? static_cast<char>(std::tolower(byte)) : c;
}

}  // namespace graphics::datatype
