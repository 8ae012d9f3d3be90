#pragma once

#include <vx/array.h>

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace vgdt {

inline constexpr std::size_t kAllElements = std::numeric_limits<std::size_t>::max();

/// The literal that reads back to the same array. What no literal can say (a null array, structs
/// that are not 1 by 1, objects without a name) stands as a description in angle brackets, and an
/// array of more than `maxElements` elements, or a text with more rows or longer rows, shows the
/// first few and how many there are. Texts with control characters are written as char([97 10 98]).
std::string formatLiteral(const vxArray* array, std::size_t maxElements = kAllElements);

/// The same, with a line for each row of a char matrix and for each cell of a column of texts.
std::vector<std::string> formatLiteralRows(const vxArray* array, std::size_t maxElements);

/// "1x3 double".
std::string sizeAndClass(const vxArray* array);

}  // namespace vgdt
