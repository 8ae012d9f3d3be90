#include "Inputs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace texts {
namespace {

/// Numbers that look random, the same ones each time.
class Random {
 public:
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 1664525 + 1013904223;
    return (state_ >> 8U) % limit;
  }
  vxChar letter() { return static_cast<vxChar>('a' + below(26)); }

 private:
  std::uint32_t state_ = 1;
};

template <class NextNumber>
ArrayOwner row(std::size_t count, NextNumber nextNumber) {
  ArrayOwner array(vxCreateDoubleMatrix(1, count, vxREAL));
  std::generate_n(static_cast<double*>(vxGetWritableData(array.get())), count, nextNumber);
  return array;
}

template <class NextCharacter>
ArrayOwner text(std::size_t rows, std::size_t columns, NextCharacter nextCharacter) {
  const std::array dimensions{rows, columns};
  ArrayOwner array(vxCreateCharArray(dimensions.size(), dimensions.data()));
  auto* const characters = static_cast<vxChar*>(vxGetWritableData(array.get()));
  for (std::size_t row = 0; row < rows; ++row)
    for (std::size_t column = 0; column < columns; ++column)
      characters[column * rows + row] = nextCharacter();
  return array;
}

}  // namespace

ArrayOwner mixedNumbers(std::size_t count) {
  return row(count, [random = Random()]() mutable {
    constexpr std::array kNotFinite{std::numeric_limits<double>::infinity(),
                                    -std::numeric_limits<double>::infinity(),
                                    std::numeric_limits<double>::quiet_NaN()};
    const std::uint32_t kind = random.below(100);
    if (kind < kNotFinite.size()) return kNotFinite[kind];
    const int exponent = static_cast<int>(random.below(25)) - 12;
    return (random.below(2'000'001) / 1e6 - 1) * std::pow(10, exponent);
  });
}

ArrayOwner wholeNumbers(std::size_t count) {
  return row(count, [random = Random()]() mutable { return random.below(2'001) - 1000.0; });
}

std::span<const double> numbersOf(const vxArray* array) {
  return {static_cast<const double*>(vxGetData(array)), vxGetNumberOfElements(array)};
}

ArrayOwner linesInRows(std::size_t rows, std::size_t count) {
  return text(rows, count / rows, [random = Random(), left = 40U]() mutable {
    if (left-- > 0) return random.letter();
    left = 20 + random.below(41);
    return vxChar{'\n'};
  });
}

ArrayOwner letters(std::size_t rows, std::size_t columns) {
  return text(rows, columns, [random = Random()]() mutable { return random.letter(); });
}

ArrayOwner rowsInCells(const vxArray* matrix) {
  const std::size_t rows = vxGetM(matrix);
  ArrayOwner cells(vxCreateCellMatrix(rows, 1));
  for (std::size_t row = 0; row < rows; ++row) {
    std::vector<vxChar> line;
    for (std::size_t i = row; i < vxGetNumberOfElements(matrix); i += rows)
      line.push_back(charactersOf(matrix)[i]);
    vxSetCell(cells.get(), row, vxCreateString_UTF16(line.data(), line.size()));
  }
  return cells;
}

ArrayOwner withChange(ArrayOwner text, std::size_t place) {
  static_cast<vxChar*>(vxGetWritableData(text.get()))[place] = '-';
  return text;
}

std::span<const vxChar> charactersOf(const vxArray* text) {
  return {static_cast<const vxChar*>(vxGetData(text)), vxGetNumberOfElements(text)};
}

}  // namespace texts
