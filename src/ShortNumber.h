#pragma once

/// Numbers in texts that people read.

#include <charconv>
#include <cstddef>

namespace graphics::datatype {

/// The length of the longest one, such as "-1.23457e-308".
inline constexpr std::size_t kLongestShortNumber = 13;

/// Writes a number as "%g" does in the classic locale, with six digits, and returns the end. There
/// is no NUL behind it.
inline char* writeShortNumber(char* out, double number) {
  constexpr int kDigits = 6;
  return std::to_chars(out, out + kLongestShortNumber, number, std::chars_format::general, kDigits)
      .ptr;
}

}  // namespace graphics::datatype
