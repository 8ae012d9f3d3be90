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
#include <utility>
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

// --- lines to rows ------------------------------------------------------------------------------

/// Writes lines, one after another, as the rows of a new char array with blanks behind the shorter
/// ones. `count` lines have to come, none longer than `longest`, which is not 0.
class RowWriter {
 public:
  RowWriter(std::size_t count, std::size_t longest) : count_(count), longest_(longest) {
    const std::size_t dimensions[] = {count, longest};
    text_.reset(vxCreateCharArray(2, dimensions));
    characters_ = static_cast<vxChar*>(vxGetWritableData(text_.get()));
    std::fill_n(characters_, count * longest, kBlank);
  }

  void add(const Line& line) {
    lines_[added_++ % kTile] = line;
    if (added_ % kTile == 0 || added_ == count_) writeTiles((added_ - 1) / kTile * kTile);
  }

  ArrayPtr take() { return std::move(text_); }

 private:
  static constexpr std::size_t kTile = 64;

  /// The rows from `top` on. Each row of a tile reads on in its line, and the columns of a tile
  /// stay in the fastest cache.
  void writeTiles(std::size_t top) {
    for (std::size_t left = 0; left < longest_; left += kTile)
      for (std::size_t row = top; row < added_; ++row) {
        const Line& line = lines_[row - top];
        for (std::size_t column = left; column < std::min(line.length, left + kTile); ++column)
          characters_[column * count_ + row] = line[column];
      }
  }

  std::size_t count_;
  std::size_t longest_;
  std::size_t added_ = 0;
  ArrayPtr text_;
  vxChar* characters_ = nullptr;
  std::array<Line, kTile> lines_;
};

/// The rows are the lines that `forEachLine(use)` calls `use` with, each time the same ones.
template <class ForEachLine>
ArrayPtr rowsOfLines(ForEachLine&& forEachLine) {
  std::size_t count = 0;
  std::size_t longest = 0;
  forEachLine([&](const Line& line) {
    ++count;
    longest = std::max(longest, line.length);
  });
  if (longest == 0) return newEmptyText();
  RowWriter writer(count, longest);
  forEachLine([&writer](const Line& line) { writer.add(line); });
  return writer.take();
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

/// Calls `use` with what stands between the line feeds of a row, be it nothing.
template <class Use>
void forEachPiece(const Line& row, Use&& use) {
  for (std::size_t begin = 0, end = 0; begin <= row.length; begin = end + 1) {
    end = findLineFeed(row, begin);
    use(Line{row.first + begin * row.stride, end - begin, row.stride});
  }
}

ArrayPtr rowsOfText(const vxArray* text) {
  return rowsOfLines([text](const auto& use) {
    for (std::size_t row = 0; row < vxGetM(text); ++row)
      forEachPiece(rowOf(text, row), use);
  });
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

/// Kept: an array with several rows and several columns, which are all after the first dimension,
/// becomes the empty text.
ArrayPtr rowsOfNumbers(const vxArray* array) {
  const bool isVector = vxGetM(array) == 1 || vxGetN(array) == 1;
  if (vxIsEmpty(array) || !isVector) return newEmptyText();
  vxArray* const doubles = vxMustBe(array, vxDOUBLE_CLASS);
  const ArrayPtr converted(doubles == array ? nullptr : doubles);
  const std::span numbers(static_cast<const double*>(vxGetData(doubles)),
                          vxGetNumberOfElements(doubles));
  const std::vector<WrittenNumber> written(numbers.begin(), numbers.end());
  return rowsOfLines([&written](const auto& use) {
    for (const WrittenNumber& number : written)
      use(number.line());
  });
}

// --- cells --------------------------------------------------------------------------------------

/// The same characters with two dimensions, if they had more.
ArrayPtr asMatrix(const vxArray* text) {
  ArrayPtr copy(vxCreateSharedDataCopy(text));
  const std::size_t dimensions[] = {vxGetM(text), vxGetN(text)};
  if (!vxIsEmpty(text) && vxGetNumberOfDimensions(text) > 2)
    vxSetDimensions(copy.get(), dimensions, 2);
  return copy;
}

/// The lines of a char or numeric array as rows.
ArrayPtr rowsOf(const vxArray* array) {
  if (!isText(array)) return rowsOfNumbers(array);
  return hasLineFeed(array) ? rowsOfText(array) : asMatrix(array);
}

/// How many cells the rows of a text take.
std::size_t countCells(const vxArray* text) {
  return vxIsEmpty(text) ? 1 : vxGetM(text);
}

/// A row as a text of its own.
ArrayPtr cellOf(const vxArray* text, std::size_t row) {
  if (vxIsEmpty(text)) return newEmptyText();
  const bool isRow = vxGetM(text) == 1 && vxGetNumberOfDimensions(text) == 2;
  if (isRow) return ArrayPtr(vxCreateSharedDataCopy(text));
  return rowsOfLines([&](const auto& use) { use(rowOf(text, row)); });
}

/// A column with the lines of all cells.
ArrayPtr cellsOf(const vxArray* array) {
  const std::size_t count = vxGetNumberOfElements(array);
  ArrayPtr texts(vxCreateCellMatrix(count, 1));
  std::size_t lines = 0;
  for (std::size_t i = 0; i < count; ++i) {
    ArrayPtr text = rowsOf(vxGetCell(array, i));
    lines += countCells(text.get());
    vxSetCell(texts.get(), i, text.release());
  }
  if (lines == count) return texts;
  ArrayPtr cells(vxCreateCellMatrix(lines, 1));
  std::size_t next = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const vxArray* const text = vxGetCell(texts.get(), i);
    for (std::size_t row = 0; row < countCells(text); ++row)
      vxSetCell(cells.get(), next++, cellOf(text, row).release());
  }
  return cells;
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

/// Whether two lines are the same, be their trailing blanks kept or taken away. None if that makes
/// a difference, or if one of them is not known.
std::optional<bool> areSame(const std::optional<Line>& a, const std::optional<Line>& b) {
  if (!a || !b) return std::nullopt;
  if (a->length == b->length) return beginAlike(*a, *b, a->length);
  const std::size_t length = lengthWithoutBlanks(*a);
  const bool differInBlanks = length == lengthWithoutBlanks(*b) && beginAlike(*a, *b, length);
  return differInBlanks ? std::nullopt : std::optional(false);
}

}  // namespace

ArrayPtr linesOf(const vxArray* array) {
  if (isText(array) || vg::isNumericClass(vxGetClassID(array))) return rowsOf(array);
  return vxIsEmpty(array) ? ArrayPtr(vxCreateSharedDataCopy(array)) : cellsOf(array);
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
