#pragma once

/// Lower bounds of making a value from numbers: the least work that gives the same numbers, without
/// a class system and without a check of the numbers.

#include "contest.h"

#include <ut/memory.h>

#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace peers {

struct Free {
  void operator()(void* block) const { utFree(block); }
};
template <std::size_t count>
using Block = std::unique_ptr<Numbers<count>, Free>;

/// The numbers at the beginning of a block of the host's memory as large as a `Value`.
template <class Value, std::size_t count>
Block<count> newBlock(const Numbers<count>& numbers) {
  static_assert(sizeof(Value) >= sizeof numbers);
  void* const storage = utCalloc(1, sizeof(Value));
  if (!storage) fail("out of memory");
  return Block<count>(new (storage) Numbers<count>(numbers));
}

inline constexpr auto kInBlock = [](const auto& block) { return *block; };

/// The numbers of a text in brackets, one blank between them.
template <std::size_t count>
Numbers<count> readByFromChars(const char* text) {
  const char* const end = text + std::strlen(text);
  Numbers<count> numbers{};
  for (double& number : numbers)
    text = std::from_chars(text + 1, end, number).ptr;
  return numbers;
}

template <std::size_t count>
Numbers<count> readByStrtod(const char* text) {
  Numbers<count> numbers{};
  for (double& number : numbers) {
    char* stop = nullptr;
    number = std::strtod(text + 1, &stop);
    text = stop;
  }
  return numbers;
}

/// Adds what only reads the numbers of a text, and what puts them into a block as well.
template <class Value, std::size_t count>
void addTextBounds(const char* work, Goal fromChars, const Task<const char*, count>& task) {
  competeInMaking(work, "from_chars", fromChars, task, readByFromChars<count>);
  competeInMaking(
      work, "from_chars+block", Goal::kNone, task,
      [](const char* text) { return newBlock<Value>(readByFromChars<count>(text)); }, kInBlock);
  competeInMaking(work, "strtod", Goal::kAhead, task, readByStrtod<count>);
}

/// Adds what copies numbers into a block.
template <class Value, std::size_t count>
void addArrayBound(const char* work, Goal goal, const Numbers<count>& numbers) {
  competeInMaking(work, "copy+block", goal, Task<Numbers<count>, count>{numbers, numbers},
                  newBlock<Value, count>, kInBlock);
}

}  // namespace peers
