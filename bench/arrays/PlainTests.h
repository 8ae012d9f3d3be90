#pragma once

/// The tests as others write them, which ask the same of an element.

#include "Rules.h"

#include <cstddef>
#include <vector>

namespace arrays {

/// The name of the search for a zero among 32-bit numbers in the C library.
inline constexpr const char* kZeroSearch = "wmemchr";

template <class Rules>
struct PlainTest {
  const char* name;
  bool (*isValid)(const typename Rules::Element* elements, std::size_t count);
};

/// Those of a type. Each source that has some adds them before main().
template <class Rules>
std::vector<PlainTest<Rules>>& plainTests() {
  static std::vector<PlainTest<Rules>> tests;
  return tests;
}

}  // namespace arrays
