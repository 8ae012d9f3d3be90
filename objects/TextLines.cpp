#include "TextLines.h"

#include <graphics/datatype/ArrayBase.h>
#include <vg/MatrixTraits.h>
#include <vx/errors.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

namespace graphics::datatype {
namespace {

constexpr vxChar kLineFeed = 10;
constexpr vxChar kBlank = 32;

/// Characters that stand in an array some way apart: those of a row, for instance.
struct Line {
  const vxChar* first;
  std::size_t length;
  std::size_t stride = 1;

  vxChar operator[](std::size_t index) const { return first[index * stride]; }
};

const vxChar* charactersOf(const vxArray* text) {
  return static_cast<const vxChar*>(vxGetData(text));
}

Line rowOf(const vxArray* text, std::size_t row) {
  return {charactersOf(text) + row, vxGetN(text), vxGetM(text)};
}

bool isText(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS;
}

ArrayPtr newEmptyText() {
  return ArrayPtr(vxCreateString(""));
}

ArrayPtr newTextArray(std::size_t rows, std::size_t columns) {
  const std::size_t dimensions[] = {rows, columns};
  return ArrayPtr(vxCreateCharArray(2, dimensions));
}

// --- lines to rows ------------------------------------------------------------------------------

/// The rows are the lines that `lineAt(i)` gives. They are written in tiles, so that the columns of
/// one stay in the fastest cache while its rows are read.
template <class LineAt>
ArrayPtr newRows(std::size_t count, std::size_t longest, LineAt&& lineAt) {
  if (longest == 0) return newEmptyText();
  constexpr std::size_t kTile = 64;
  ArrayPtr text = newTextArray(count, longest);
  const std::span characters(static_cast<vxChar*>(vxGetWritableData(text.get())), count * longest);
  std::ranges::fill(characters, kBlank);
  for (std::size_t top = 0; top < count; top += kTile)
    for (std::size_t left = 0; left < longest; left += kTile)
      for (std::size_t row = top; row < std::min(count, top + kTile); ++row) {
        const Line line = lineAt(row);
        for (std::size_t column = left; column < std::min(line.length, left + kTile); ++column)
          characters[column * count + row] = line[column];
      }
  return text;
}

bool hasLineFeed(std::span<const vxChar> characters) {
  constexpr std::size_t kBlock = 512;
  for (; characters.size() >= kBlock; characters = characters.subspan(kBlock)) {
    unsigned short found = 0;  // no branch, so that the compiler makes vectors of it
    for (const vxChar character : characters.first<kBlock>())
      found |= character == kLineFeed;
    if (found != 0) return true;
  }
  return std::ranges::find(characters, kLineFeed) != characters.end();
}

bool hasLineFeed(const vxArray* text) {
  return hasLineFeed(std::span(charactersOf(text), vxGetNumberOfElements(text)));
}

/// The place of the first line feed from `begin` on; the length if there is none.
std::size_t findLineFeed(const Line& row, std::size_t begin) {
  if (row.stride == 1)
    return static_cast<std::size_t>(
        std::find(row.first + begin, row.first + row.length, kLineFeed) - row.first);
  while (begin < row.length && row[begin] != kLineFeed)
    ++begin;
  return begin;
}

/// What stands between the line feeds of a row, be it nothing.
void addPieces(std::vector<Line>& pieces, const Line& row) {
  for (std::size_t begin = 0, end = 0; begin <= row.length; begin = end + 1) {
    end = findLineFeed(row, begin);
    pieces.push_back({row.first + begin * row.stride, end - begin, row.stride});
  }
}

ArrayPtr newRowsOfText(const vxArray* text) {
  std::vector<Line> lines;
  for (std::size_t row = 0; row < vxGetM(text); ++row)
    addPieces(lines, rowOf(text, row));
  const std::size_t longest = std::ranges::max_element(lines, {}, &Line::length)->length;
  return newRows(lines.size(), longest, [&lines](std::size_t i) { return lines[i]; });
}

// --- numbers to rows ----------------------------------------------------------------------------

/// A number as "%g" writes it, but for the words.
class WrittenNumber {
 public:
  explicit WrittenNumber(double number) {
    if (std::isnan(number))
      write("NaN");
    else if (std::isinf(number))
      write(number < 0 ? "-Inf" : "Inf");
    else
      writeFinite(number);
  }

  Line line() const { return {characters_.data(), length_}; }

 private:
  static constexpr std::size_t kLongest = std::string_view("-1.23457e-308").size();

  void write(std::string_view text) {
    std::ranges::copy(text, characters_.begin());
    length_ = static_cast<unsigned char>(text.size());
  }

  void writeFinite(double number) {
    constexpr int kDigits = 6;
    constexpr double kFewerDigits = 1e6;
    std::array<char, kLongest> text;
    std::to_chars_result end{};
    const bool isShort = std::abs(number) < kFewerDigits && !(number == 0 && std::signbit(number));
    const auto whole = static_cast<std::int32_t>(isShort ? number : 0);
    if (isShort && whole == number)  // what labels mostly are, and quickly written
      end = std::to_chars(text.begin(), text.end(), whole);
    else
      end = std::to_chars(text.begin(), text.end(), number, std::chars_format::general, kDigits);
    if (end.ec != std::errc()) vxErrMsg(vxMSG_NUMBER_TO_TEXT);
    write({text.begin(), end.ptr});
  }

  std::array<vxChar, kLongest> characters_;
  unsigned char length_ = 0;
};

/// Kept: a matrix that is neither a row nor a column becomes the empty text.
ArrayPtr newRowsOfNumbers(const vxArray* array) {
  const bool isVector = vxGetM(array) == 1 || vxGetN(array) == 1;
  if (vxIsEmpty(array) || !isVector) return newEmptyText();
  vxArray* const doubles = vxMustBe(array, vxDOUBLE_CLASS);
  const ArrayPtr converted(doubles == array ? nullptr : doubles);
  const std::span numbers(static_cast<const double*>(vxGetData(doubles)),
                          vxGetNumberOfElements(doubles));
  const std::vector<WrittenNumber> lines(numbers.begin(), numbers.end());
  std::size_t longest = 0;
  for (const WrittenNumber& written : lines)
    longest = std::max(longest, written.line().length);
  return newRows(lines.size(), longest, [&lines](std::size_t i) { return lines[i].line(); });
}

// --- cells --------------------------------------------------------------------------------------

ArrayPtr newTextMatrix(const vxArray* text) {
  ArrayPtr copy(vxCreateSharedDataCopy(text));
  const std::size_t dimensions[] = {vxGetM(text), vxGetN(text)};
  if (!vxIsEmpty(text) && vxGetNumberOfDimensions(text) > 2)
    vxSetDimensions(copy.get(), dimensions, 2);
  return copy;
}

ArrayPtr newLinesOfOne(const vxArray* element) {
  if (!isText(element)) return newRowsOfNumbers(element);
  return hasLineFeed(element) ? newRowsOfText(element) : newTextMatrix(element);
}

/// How many cells a text takes.
std::size_t countLines(const vxArray* text) {
  return vxIsEmpty(text) ? 1 : vxGetM(text);
}

ArrayPtr newRow(const vxArray* text, std::size_t row) {
  if (vxIsEmpty(text)) return newEmptyText();
  const bool isRow = vxGetM(text) == 1 && vxGetNumberOfDimensions(text) == 2;
  if (isRow) return ArrayPtr(vxCreateSharedDataCopy(text));
  return newRows(1, vxGetN(text), [&](std::size_t) { return rowOf(text, row); });
}

ArrayPtr newCells(const vxArray* array) {
  const std::size_t count = vxGetNumberOfElements(array);
  ArrayPtr texts(vxCreateCellMatrix(count, 1));
  std::size_t lines = 0;
  for (std::size_t i = 0; i < count; ++i) {
    ArrayPtr text = newLinesOfOne(vxGetCell(array, i));
    lines += countLines(text.get());
    vxSetCell(texts.get(), i, text.release());
  }
  if (lines == count) return texts;
  ArrayPtr result(vxCreateCellMatrix(lines, 1));
  std::size_t next = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const vxArray* const text = vxGetCell(texts.get(), i);
    for (std::size_t row = 0; row < countLines(text); ++row)
      vxSetCell(result.get(), next++, newRow(text, row).release());
  }
  return result;
}

// --- comparison ---------------------------------------------------------------------------------

std::size_t countLinesOf(const vxArray* array) {
  if (ArrayBase::isEmpty(array)) return 0;
  return isText(array) ? vxGetM(array) : vxGetNumberOfElements(array);
}

/// None for an element of which the host decides what line it is.
std::optional<Line> lineOf(const vxArray* array, std::size_t index) {
  if (isText(array)) return rowOf(array, index);
  const vxArray* const element = vxGetCell(array, index);
  if (!element || !isText(element) || vxGetM(element) > 1) return std::nullopt;
  return Line{charactersOf(element), vxGetNumberOfElements(element)};
}

std::size_t lengthWithoutBlanks(const Line& line) {
  std::size_t length = line.length;
  while (length > 0 && line[length - 1] == kBlank)
    --length;
  return length;
}

bool beginAlike(const Line& a, const Line& b, std::size_t length) {
  if (a.stride == 1 && b.stride == 1) return std::equal(a.first, a.first + length, b.first);
  for (std::size_t i = 0; i < length; ++i)
    if (a[i] != b[i]) return false;
  return true;
}

/// Whether two lines are the same with their trailing blanks and without them; none if they are not
/// the same in both ways.
std::optional<bool> areSame(const std::optional<Line>& a, const std::optional<Line>& b) {
  if (!a || !b) return std::nullopt;
  if (a->length == b->length) return beginAlike(*a, *b, a->length);
  const std::size_t length = lengthWithoutBlanks(*a);
  if (length != lengthWithoutBlanks(*b) || !beginAlike(*a, *b, length)) return false;
  return std::nullopt;
}

}  // namespace

ArrayPtr newLines(const vxArray* array) {
  if (isText(array) || vg::isNumericClass(vxGetClassID(array))) return newLinesOfOne(array);
  return vxIsEmpty(array) ? ArrayPtr(vxCreateSharedDataCopy(array)) : newCells(array);
}

std::optional<bool> haveSameLines(const vxArray* a, const vxArray* b) {
  const std::size_t count = countLinesOf(a);
  if (count != countLinesOf(b)) return false;
  if (count == 0) return true;
  if (isText(a) && isText(b) && vxGetN(a) == vxGetN(b))
    return std::equal(charactersOf(a), charactersOf(a) + vxGetNumberOfElements(a), charactersOf(b));
  std::optional<bool> result = true;
  for (std::size_t i = 0; i < count; ++i) {
    const std::optional<bool> same = areSame(lineOf(a, i), lineOf(b, i));
    if (same == false) return false;
    if (!same) result = std::nullopt;
  }
  return result;
}

}  // namespace graphics::datatype
