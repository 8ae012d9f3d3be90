#pragma once

/// What is printed in the end: the library's benchmarks against others, in rows.

#include "measuring.h"

#include <cstddef>
#include <string>

namespace measuring {

struct Comparison {
  std::string work;
  std::string against;
  std::string ours;   ///< a benchmark
  std::string other;  ///< another
  Goal goal;
};

/// Compares the speeds at which so many bytes are passed over, and so many by the other one.
void compareSpeeds(const Comparison& comparison, std::size_t bytes, std::size_t itsBytes);
inline void compareSpeeds(const Comparison& comparison, std::size_t bytes) {
  compareSpeeds(comparison, bytes, bytes);
}
void compareTimes(const Comparison& comparison);

/// Prints the comparisons of which both benchmarks ran, and how many goals are met.
void printComparisons(const Times& times);

}  // namespace measuring
