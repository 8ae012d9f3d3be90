#pragma once

#include <cstddef>
#include <cstdint>

namespace arrays {

/// The sum of numbers as fast as the widest vectors of this processor read them: the limit of what
/// looks at each element once.
double widestSum(const double* elements, std::size_t count);
float widestSum(const float* elements, std::size_t count);
std::uint32_t widestSum(const std::uint32_t* elements, std::size_t count);

}  // namespace arrays
