#include <gui_objects/AutoPtr.h>
#include <gui_objects/convert_from_string_utils.h>
#include <ut/decimal.h>
#include <vx/element_types.h>

#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace gui_objects::convert_from_string_utils {
namespace {

/// Character by character: numbers are shorter than a search of the C library takes to begin.
bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool endsNumber(char c) {
  return isBlank(c) || c == ',' || c == ';' || c == '[' || c == ']' || c == '\0';
}

bool isNumberStart(char c) {
  return (c >= '0' && c <= '9') || c == '.';
}

/// A number of up to 15 digits, which may have a point: the digits as a whole number and the power
/// of ten below them are exact as doubles, so one division rounds as it should. None for any other
/// word.
std::optional<double> readShortNumber(std::string_view word) {
  static constexpr double kPowers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const std::size_t size = word.size();
  std::size_t point = size;
  std::uint64_t digits = 0;
  if (size > std::size(kPowers)) return std::nullopt;
  for (std::size_t i = 0; i < size; ++i) {
    if (word[i] >= '0' && word[i] <= '9')
      digits = 10 * digits + static_cast<std::uint64_t>(word[i] - '0');
    else if (word[i] == '.' && point == size)
      point = i;
    else
      return std::nullopt;
  }
  const std::size_t count = size - (point == size ? 0 : 1);
  if (count == 0 || count >= std::size(kPowers)) return std::nullopt;
  return static_cast<double>(digits) / kPowers[count - point];
}

/// std::from_chars without what it knows beyond numbers ("infinity", "nan(1)"), and with the plus
/// sign that it does not know.
template <class T>
std::errc readNumber(std::string_view word, T& number) {
  const auto startsNumber = [&word](std::size_t at) {
    return at < word.size() && isNumberStart(word[at]);
  };
  if (word.starts_with('+') && startsNumber(1)) word.remove_prefix(1);
  if (!startsNumber(word.starts_with('-') ? 1 : 0)) return std::errc::invalid_argument;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  return stop == end ? error : std::errc::invalid_argument;
}

template <std::floating_point T>
T readElement(std::string_view word) {
  if constexpr (std::is_same_v<T, double>)
    if (const auto number = readShortNumber(word)) return *number;
  T value = 0;
  const std::errc error = readNumber(word, value);
  if (error == std::errc()) return value;
  if (error == std::errc::result_out_of_range && std::abs(vghost::hugeOrTiny(word)) < 1)
    return word.starts_with('-') ? -T(0) : T(0);
  if (word == "NaN") return std::numeric_limits<T>::quiet_NaN();
  if (word == "Inf") return std::numeric_limits<T>::infinity();
  if (word == "-Inf") return -std::numeric_limits<T>::infinity();
  throw ParseException();
}

template <std::integral T>
T readElement(std::string_view word) {
  using Limits = std::numeric_limits<T>;
  // Not by way of a double, which has fewer digits than the 64-bit integers.
  T whole = 0;
  if (readNumber(word, whole) == std::errc()) return whole;
  const double value = std::round(readElement<double>(word));
  if (std::isnan(value)) throw ParseException();
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  if (value >= static_cast<double>(Limits::max())) return Limits::max();
  return static_cast<T>(value);
}

class Reader {
 public:
  explicit Reader(const char* text) {
    if (!text) throw ParseException();
    rest_ = text;
    skipBlanks();
  }

  /// Whether `character` comes next; if so, it is read with the blanks behind it.
  bool take(char character) {
    if (*rest_ != character) return false;
    ++rest_;
    skipBlanks();
    return true;
  }
  void require(char character) {
    if (!take(character)) throw ParseException();
  }
  bool isAtEnd() const { return *rest_ == '\0'; }
  bool isAtEndOfRow() const { return *rest_ == ';' || *rest_ == ']'; }
  /// The characters up to the next blank, separator or bracket.
  std::string_view takeWord() {
    const char* const begin = rest_;
    while (!endsNumber(*rest_))
      ++rest_;
    const std::string_view word(begin, rest_);
    skipBlanks();
    return word;
  }

 private:
  void skipBlanks() {
    while (isBlank(*rest_))
      ++rest_;
  }

  const char* rest_;  ///< up to the NUL
};

using Size = std::pair<std::size_t, std::size_t>;

/// Calls `use(row, column, word)` for each number of a text in brackets.
template <class Use>
Size readMatrix(const char* text, Use&& use) {
  Reader reader(text);
  Size size{0, 0};
  reader.require('[');
  if (!reader.take(']')) {
    do {
      std::size_t columns = 0;
      do
        use(size.first, columns++, reader.takeWord());
      while (reader.take(',') || !reader.isAtEndOfRow());
      if (size.first++ == 0) size.second = columns;
      if (columns != size.second) throw ParseException();
    } while (reader.take(';'));
    reader.require(']');
  }
  if (!reader.isAtEnd()) throw ParseException();
  return size;
}

template <class T>
void readElements(Size size, const char* text, T* elements) {
  const Size found = readMatrix(text, [&](std::size_t row, std::size_t column, auto word) {
    if (row >= size.first || column >= size.second) throw ParseException();
    elements[column * size.first + row] = readElement<T>(word);
  });
  if (found != size) throw ParseException();
}

/// The numbers column by column.
template <std::size_t rows, std::size_t columns>
std::array<double, rows * columns> readNumbers(const char* text) {
  std::array<double, rows * columns> numbers{};
  readElements({rows, columns}, text, numbers.data());
  return numbers;
}

}  // namespace

std::pair<std::size_t, std::size_t> parse_array_dimensions(const char* text) {
  return readMatrix(
      text, [](std::size_t, std::size_t, std::string_view word) { readElement<double>(word); });
}

vxArray* parse_mxn(std::size_t rows, std::size_t columns, vxClassID classID, const char* text) {
  if (classID < vxDOUBLE_CLASS || classID > vxUINT64_CLASS) throw ParseException();
  AutoPtr<vxArray, VxArrayDtor> array(vxCreateNumericMatrix(rows, columns, classID, vxREAL));
  vghost::withElementType(classID, [&]<class T>(std::type_identity<T>) {
    if constexpr (!std::is_same_v<T, bool>)
      readElements({rows, columns}, text, static_cast<T*>(vxGetWritableData(array.get())));
  });
  return array.release();
}

std::array<double, 2> parse_1x2_double(const char* text) {
  return readNumbers<1, 2>(text);
}
std::array<double, 3> parse_1x3_double(const char* text) {
  return readNumbers<1, 3>(text);
}
std::array<double, 4> parse_1x4_double(const char* text) {
  return readNumbers<1, 4>(text);
}

BoundingVolume parse_2x3_double(const char* text) {
  const auto [xMin, xMax, yMin, yMax, zMin, zMax] = readNumbers<2, 3>(text);
  return {{xMin, yMin, zMin}, {xMax, yMax, zMax}};
}
Matrix4x4d parse_4x4_double(const char* text) {
  return Matrix4x4d(readNumbers<4, 4>(text));
}

double parse_double_scalar(const char* text) {
  Reader reader(text);
  const bool hasBrackets = reader.take('[');
  const double value = readElement<double>(reader.takeWord());
  if (hasBrackets) reader.require(']');
  if (!reader.isAtEnd()) throw ParseException();
  return value;
}

}  // namespace gui_objects::convert_from_string_utils
