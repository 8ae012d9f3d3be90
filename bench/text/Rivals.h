#pragma once

/// The same work as it is written without a library.

#include <vx/array.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace texts {

/// Numbers with six digits, each in its part of a buffer.
class NumberWriter {
 public:
  explicit NumberWriter(std::span<const double> numbers);

  /// Writes all of them, and returns how many characters they take together.
  std::size_t write();
  std::string_view textOf(std::size_t index) const { return {at(index), lengths_[index]}; }

 private:
  static constexpr std::size_t kRoom = 16;

  const char* at(std::size_t index) const { return buffer_.data() + index * kRoom; }

  std::span<const double> numbers_;
  std::vector<char> buffer_;
  std::vector<unsigned char> lengths_;
};

/// Lines as the rows of a matrix, column by column.
struct Matrix {
  std::size_t rows = 0;
  std::unique_ptr<vxChar[]> characters;
};

/// What stands between the line feeds of each row, with blanks behind the shorter lines.
Matrix splitAndPad(std::span<const vxChar> text, std::size_t rows);

/// One copy of all lines in strings, for each of two arrays, which are compared.
bool haveEqualStrings(const vxArray* a, const vxArray* b);

struct Style {
  std::string text;
  std::string line;
  std::string marker;
};
using Styles = std::vector<Style>;

/// The styles of a text with a "|" between two; empty if one has neither line nor marker.
std::unique_ptr<Styles> parseStyles(const char* text);

}  // namespace texts
