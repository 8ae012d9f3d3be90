#pragma once

#include <algorithm>
#include <cmath>

namespace graphics::datatype {

/// Whether two numbers are equal but for rounding: small ones absolutely, large ones relatively.
/// NaN and infinities never are.
inline bool equalWithinRoundoff(double a, double b) noexcept {
  constexpr double kTolerance = 1e-12;
  return std::abs(a - b) / std::max({1.0, std::abs(a), std::abs(b)}) < kTolerance;
}

}  // namespace graphics::datatype
