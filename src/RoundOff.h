#pragma once

#include <algorithm>
#include <cmath>

namespace graphics::datatype {

/// Whether |a - b| / max(1, |a|, |b|) is below 1e-12; with NaN and infinities it never is.
inline bool equalWithinRoundoff(double a, double b) noexcept {
  constexpr double kTolerance = 1e-12;
  return std::abs(a - b) / std::max({1.0, std::abs(a), std::abs(b)}) < kTolerance;
}

}  // namespace graphics::datatype
