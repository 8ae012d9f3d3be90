#pragma once

/// Numbers in texts that people read. The locale of the process plays no part.

#include "HostText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <span>
#include <string_view>

namespace graphics::datatype {

/// Builds a text of up to that many numbers, with up to three characters behind each and before the
/// first.
template <std::size_t numbers>
class NumberText {
 public:
  NumberText& operator<<(std::string_view characters) {
    end_ = std::ranges::copy(characters, end_).out;
    return *this;
  }
  NumberText& operator<<(std::integral auto number) {
    end_ = std::to_chars(end_, end_ + kLongest, number).ptr;
    return *this;
  }
  /// As "%g" writes it, with six digits.
  NumberText& operator<<(double number) {
    constexpr int kDigits = 6;
    constexpr double kEndOfDigits = 1e6;
    // Whole numbers are frequent, and faster as integers, which have no negative 0.
    const int whole = std::abs(number) < kEndOfDigits ? static_cast<int>(number) : 0;
    if (whole == number && (whole != 0 || !std::signbit(number))) return *this << whole;
    end_ = std::to_chars(end_, end_ + kLongest, number, std::chars_format::general, kDigits).ptr;
    return *this;
  }

  /// A copy on the host's heap.
  char* newText() {
    *end_ = '\0';
    return copyText(text_.data());
  }

 private:
  /// That of the least 64-bit integer; the longest other number is like "-1.23457e-308".
  static constexpr std::size_t kLongest = 20;

  std::array<char, numbers*(kLongest + 3) + 4> text_;
  char* end_ = text_.data();
};

/// "[1 0.5 2]" on the host's heap.
template <class Number, std::size_t count>
char* newRowText(std::span<const Number, count> numbers) {
  NumberText<count> text;
  std::string_view separator = "[";
  for (const Number number : numbers) {
    text << separator << number;
    separator = " ";
  }
  return (text << "]").newText();
}
template <class Number, std::size_t count>
char* newRowText(const Number (&numbers)[count]) {
  return newRowText(std::span<const Number, count>(numbers));
}

}  // namespace graphics::datatype
