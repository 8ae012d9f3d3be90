#pragma once

#include <vcos/TypeAccess.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace vgdt {

/// One element in another class. Integer classes round half away from zero, saturate, and take NaN
/// as 0; logical is "not zero".
template <class To, class From>
To castElement(From value) {
  using Limits = std::numeric_limits<To>;
  if constexpr (std::is_same_v<To, bool>) {
    return value != From();
  } else if constexpr (std::is_floating_point_v<To> || std::is_same_v<From, bool>) {
    return static_cast<To>(value);
  } else if constexpr (std::is_floating_point_v<From>) {
    // A power of two is exact where the largest value itself may not be.
    const double rounded = std::round(static_cast<double>(value));
    if (std::isnan(rounded)) return 0;
    if (rounded >= std::ldexp(1.0, Limits::digits)) return Limits::max();
    if (rounded <= static_cast<double>(Limits::min())) return Limits::min();
    return static_cast<To>(rounded);
  } else {
    if (std::cmp_greater(value, Limits::max())) return Limits::max();
    if (std::cmp_less(value, Limits::min())) return Limits::min();
    return static_cast<To>(value);
  }
}

/// The array in another of the twelve element classes, with its size, imaginary parts and sparsity.
/// A class that cannot be complex or sparse raises the host's error.
vcos::ArrayOwner castArray(const vxArray* array, vxClassID classID);

}  // namespace vgdt
