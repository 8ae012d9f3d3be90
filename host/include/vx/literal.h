#pragma once

/// Arrays as users write them: [1 2 3], 'text', {'a', 'b'}.

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vx/array.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vghost {

inline constexpr std::size_t kAllElements = std::numeric_limits<std::size_t>::max();

/// The literal that reads back to the same array. What no literal can say (a null array, structs
/// that are not 1 by 1, objects without a name) stands as a description in angle brackets, and an
/// array of more than `maxElements` elements, or a text with more rows or longer rows, shows the
/// first few and how many there are. Texts with control characters are written as char([97 10 98]).
VGHOST_API std::string formatLiteral(const vxArray* array, std::size_t maxElements = kAllElements);

/// The same, with a line for each row of a char matrix and for each cell of a column of texts.
VGHOST_API std::vector<std::string> formatLiteralRows(const vxArray* array,
                                                      std::size_t maxElements);

/// "1x3 double".
VGHOST_API std::string sizeAndClass(const vxArray* array);

/// An element of an array as literals have it, with the digits that tell it from its neighbours.
template <class T>
std::string numberText(T value) {
  if constexpr (std::is_same_v<T, bool>) {
    return value ? "true" : "false";
  } else {
    if constexpr (std::is_floating_point_v<T>) {
      if (std::isnan(value)) return "NaN";
      if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
    }
    char digits[32];
    return {digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr};
  }
}

/// The name that a program has for an object; empty if it has none. It is asked by whoever prints,
/// on that thread.
using ObjectNaming = std::string_view (*)(const vcos::COSInterface& object) noexcept;

/// From now on objects are called by these names; null for none.
VGHOST_API void setObjectNaming(ObjectNaming naming) noexcept;

/// The name of an object, or else the last part of its class's name.
VGHOST_API std::string shownName(const vcos::COSInterface& object);

}  // namespace vghost
