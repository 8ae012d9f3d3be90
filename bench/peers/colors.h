#pragma once

/// What the contenders share that make colours.

#include "contest.h"

namespace peers {

/// Fractions of red, green and blue.
using Rgb = Numbers<3>;

inline constexpr Task<const char*, 3> kColorName{"red", {1, 0, 0}};
inline constexpr Task<const char*, 3> kColorAbbreviation{"r", {1, 0, 0}};
inline constexpr Task<const char*, 3> kColorNumbers{"[0.1 0.2 0.3]", {0.1, 0.2, 0.3}};

}  // namespace peers
