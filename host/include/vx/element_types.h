#pragma once

/// The element types behind the class numbers of host arrays.

#include <vx/array.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace vghost {

/// Whether arrays of the class have plain elements: the twelve classes from logical to uint64.
constexpr bool hasPlainElements(vxClassID classID) noexcept {
  return classID == vxLOGICAL_CLASS || classID == vxCHAR_CLASS ||
         (classID >= vxDOUBLE_CLASS && classID <= vxUINT64_CLASS);
}

/// Calls `use` with the std::type_identity of the class's element type. A std::logic_error for a
/// class without plain elements.
template <class Use>
decltype(auto) withElementType(vxClassID classID, Use&& use) {
  switch (classID) {
    case vxLOGICAL_CLASS:
      return use(std::type_identity<bool>());
    case vxCHAR_CLASS:
      return use(std::type_identity<vxChar>());
    case vxDOUBLE_CLASS:
      return use(std::type_identity<double>());
    case vxSINGLE_CLASS:
      return use(std::type_identity<float>());
    case vxINT8_CLASS:
      return use(std::type_identity<std::int8_t>());
    case vxUINT8_CLASS:
      return use(std::type_identity<std::uint8_t>());
    case vxINT16_CLASS:
      return use(std::type_identity<std::int16_t>());
    case vxUINT16_CLASS:
      return use(std::type_identity<std::uint16_t>());
    case vxINT32_CLASS:
      return use(std::type_identity<std::int32_t>());
    case vxUINT32_CLASS:
      return use(std::type_identity<std::uint32_t>());
    case vxINT64_CLASS:
      return use(std::type_identity<std::int64_t>());
    case vxUINT64_CLASS:
      return use(std::type_identity<std::uint64_t>());
    default:
      throw std::logic_error("the class has no plain elements");
  }
}

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

}  // namespace vghost
