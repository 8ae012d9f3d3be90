#pragma once

/// What is printed in the end: the library's benchmarks against others, in rows.

#include "../common/measuring.h"

#include <cstddef>
#include <string>

namespace arrays {

struct Comparison {
  std::string work;
  std::string against;
  std::string ours;   ///< a benchmark
  std::string other;  ///< another
  measuring::Goal goal;
};

/// Compares the speeds at which so many bytes are passed over.
void compareSpeeds(const Comparison& comparison, std::size_t bytes);
void compareTimes(const Comparison& comparison);

/// Prints the comparisons of which both benchmarks ran, and how many goals are met.
void printComparisons(const measuring::Times& times);

}  // namespace arrays
