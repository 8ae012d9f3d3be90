#pragma once

#include <vcos/TypeAccess.h>

#include <cstddef>
#include <string_view>

namespace vgdt {

/// A part of a literal that has become an array.
struct LiteralValue {
  vcos::ArrayOwner array;
  std::size_t position;  ///< of its first byte in the literal
};

/// A number as the grammar lets it through: sign, decimal digits and exponent, or NaN, or Inf.
double readNumber(std::string_view token);

/// The row first, first + 1, ... up to last; 1 by 0 if last is smaller. Neither may be NaN.
vcos::ArrayOwner makeRange(double first, double last);

/// A count from a double that is not negative; what does not fit becomes the largest size.
std::size_t asSize(double value);

}  // namespace vgdt
