#pragma once

#include <charconv>
#include <cmath>
#include <iterator>
#include <string>
#include <type_traits>

namespace vgdt {

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

}  // namespace vgdt
