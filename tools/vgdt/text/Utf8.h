#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vgdt {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

struct Utf8Character {
  char32_t character;
  std::size_t length;  ///< in bytes
};

/// The character that begins a text, which must not be empty. Where the text is broken, it is
/// U+FFFD with the length of what could still have become a character, at least one byte.
Utf8Character firstCharacter(std::string_view utf8);

/// The bytes of a character, which must be none of the surrogates.
class Utf8Bytes {
 public:
  explicit Utf8Bytes(char32_t character);
  operator std::string_view() const { return {bytes_, length_}; }

 private:
  char bytes_[4];
  std::size_t length_;
};

}  // namespace vgdt
