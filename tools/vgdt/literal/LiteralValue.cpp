#include "literal/LiteralValue.h"

#include "ArrayElements.h"

#include <ut/decimal.h>

#include <charconv>
#include <cmath>
#include <limits>

namespace vgdt {
namespace {

double readMagnitude(std::string_view digits) {
  if (digits == "NaN") return std::numeric_limits<double>::quiet_NaN();
  if (digits == "Inf") return std::numeric_limits<double>::infinity();
  double value = 0;
  const auto result = std::from_chars(digits.begin(), digits.end(), value);
  return result.ec == std::errc::result_out_of_range ? vghost::hugeOrTiny(digits) : value;
}

}  // namespace

double readNumber(std::string_view token) {
  const bool negative = token.front() == '-';
  if (negative || token.front() == '+') token.remove_prefix(1);
  const double magnitude = readMagnitude(token);
  return negative ? -magnitude : magnitude;
}

vcos::ArrayOwner makeRange(double first, double last) {
  // The rounding of the ends must not cost the last element: 0.1:3.1 has four.
  constexpr double kSlack = 1e-10;
  const double steps = std::floor(last - first + kSlack);
  const std::size_t dimensions[] = {1, steps < 0 ? 0 : asSize(steps + 1)};
  vcos::ArrayOwner range = makeArray(vxDOUBLE_CLASS, dimensions);
  double step = 0;
  for (double& element : writableElementsOf<double>(range.get()))
    element = first + step++;
  return range;
}

std::size_t asSize(double value) {
  return value < 0x1p64 ? static_cast<std::size_t>(value) : std::numeric_limits<std::size_t>::max();
}

}  // namespace vgdt
