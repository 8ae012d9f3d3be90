#include "Rivals.h"

#include <gui_objects/UTF16String.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace texts {

NumberWriter::NumberWriter(std::span<const double> numbers)
    : numbers_(numbers),
      buffer_(numbers.size() * kRoom),
      lengths_(numbers.size()) {}

std::size_t NumberWriter::write() {
  std::size_t sum = 0;
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    char* const begin = buffer_.data() + i * kRoom;
    const char* const end =
        std::to_chars(begin, begin + kRoom, numbers_[i], std::chars_format::general, 6).ptr;
    lengths_[i] = static_cast<unsigned char>(end - begin);
    sum += lengths_[i];
  }
  return sum;
}

Matrix splitAndPad(std::span<const vxChar> text, std::size_t rows) {
  struct Line {
    std::size_t begin;
    std::size_t length;
  };
  std::vector<Line> lines;
  std::size_t longest = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    lines.push_back({row, 0});
    for (std::size_t i = row; i < text.size(); i += rows) {
      if (text[i] == '\n') {
        longest = std::max(longest, lines.back().length);
        lines.push_back({i + rows, 0});
      } else {
        ++lines.back().length;
      }
    }
    longest = std::max(longest, lines.back().length);
  }
  const std::size_t count = lines.size();
  Matrix matrix{count, std::make_unique_for_overwrite<vxChar[]>(count * longest)};
  for (std::size_t line = 0; line < count; ++line)
    for (std::size_t column = 0; column < longest; ++column)
      matrix.characters[column * count + line] =
          column < lines[line].length ? text[lines[line].begin + column * rows] : vxChar{' '};
  return matrix;
}

bool haveEqualStrings(const vxArray* a, const vxArray* b) {
  return gui_objects::createUTF16StringsFromArray(a) == gui_objects::createUTF16StringsFromArray(b);
}

namespace {

/// The longest word that the text begins with; empty if there is none.
template <std::size_t count>
std::string_view wordIn(std::string_view text, const std::array<std::string_view, count>& words) {
  for (const std::string_view word : words)
    if (text.starts_with(word)) return word;
  return {};
}

Style parseStyle(std::string_view text) {
  constexpr std::array<std::string_view, 4> kLines{"--", "-.", "-", ":"};
  constexpr std::array<std::string_view, 17> kMarkers{
      "pentagram", "hexagram", "diamond", "square", "+", "o", "*", ".", "x",
      "v",         "^",        ">",       "<",      "s", "d", "p", "h"};
  Style style{std::string(text), {}, {}};
  while (!text.empty()) {
    const std::string_view line = wordIn(text, kLines);
    const std::string_view word = line.empty() ? wordIn(text, kMarkers) : line;
    if (word.empty()) return {};
    (line.empty() ? style.marker : style.line) = std::string(word);
    text.remove_prefix(word.size());
  }
  return style;
}

}  // namespace

std::unique_ptr<Styles> parseStyles(const char* text) {
  auto styles = std::make_unique<Styles>();
  std::string_view rest(text);
  while (true) {
    const std::size_t end = std::min(rest.find('|'), rest.size());
    styles->push_back(parseStyle(rest.substr(0, end)));
    if (styles->back().text.empty()) return nullptr;
    if (end == rest.size()) return styles;
    rest.remove_prefix(end + 1);
  }
}

}  // namespace texts
