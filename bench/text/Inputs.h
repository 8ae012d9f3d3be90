#pragma once

/// Host arrays to make texts from; the same ones each time.

#include <vcos/TypeAccess.h>
#include <vx/array.h>

#include <cstddef>
#include <span>

namespace texts {

using vcos::ArrayOwner;

/// A row of numbers as a computation gives them: of all magnitudes, a few of them not finite.
ArrayOwner mixedNumbers(std::size_t count);
/// A row of whole numbers as labels mostly are.
ArrayOwner wholeNumbers(std::size_t count);
std::span<const double> numbersOf(const vxArray* array);

/// About `count` letters in so many rows, in each of which lines of 20 to 60 letters end in line
/// feeds.
ArrayOwner linesInRows(std::size_t rows, std::size_t count);
/// A row of letters, or a matrix.
ArrayOwner letters(std::size_t rows, std::size_t columns);
/// The rows of a char matrix in a column of cells.
ArrayOwner rowsInCells(const vxArray* matrix);
/// The same text with another character at the place.
ArrayOwner withChange(ArrayOwner text, std::size_t place);

std::span<const vxChar> charactersOf(const vxArray* text);

}  // namespace texts
