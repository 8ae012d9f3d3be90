#pragma once

#include "support/FailingNew.h"

#include <messages/exceptions.h>
#include <ut/faults.h>
#include <vcos/exceptions.h>

#include <cstdint>
#include <new>

namespace test {

/// Something that can be counted and told to fail.
struct Obstacle {
  char letter;  ///< as in Obstacles
  const char* name;
  std::uint64_t (*count)();
  void (*fail)(std::uint64_t nth, bool fromThenOn);
  void (*heal)();
};

inline constexpr auto kRepeat = [](bool fromThenOn) {
  return fromThenOn ? vghost::faults::Repeat::FromThenOn : vghost::faults::Repeat::Once;
};

inline constexpr Obstacle kObstacles[] = {
    {'n', "operator new", newCount, failNew, failNoNew},
    {'a', "host allocation", vghost::faults::allocationCount,
     [](std::uint64_t nth, bool fromThenOn) {
       vghost::faults::failAllocation(nth, kRepeat(fromThenOn));
     },
     vghost::faults::disarm},
    {'c', "host call", vghost::faults::hostCallCount,
     [](std::uint64_t nth, bool fromThenOn) {
       vghost::faults::failHostCall(nth, kRepeat(fromThenOn));
     },
     vghost::faults::disarm},
    {'s', "call that the class system refuses", vghost::faults::hostCallCount,
     [](std::uint64_t nth, bool fromThenOn) {
       vghost::faults::failHostCall(nth, kRepeat(fromThenOn), vghost::faults::Failure::ClassSystem);
     },
     vghost::faults::disarm},
};

enum class Outcome { kSucceeded, kOutOfMemory, kClassSystemOutOfMemory, kClassSystem, kHostError };

template <class Work>
Outcome outcomeOf(Work&& work) {
  try {
    work();
    return Outcome::kSucceeded;
  } catch (const std::bad_alloc&) {
    return Outcome::kOutOfMemory;
  } catch (const vcos::COSOutOfMemoryException&) {
    return Outcome::kClassSystemOutOfMemory;
  } catch (const vcos::COSException&) {
    return Outcome::kClassSystem;
  } catch (const Lindgrove::System::OutOfMemoryException_DEPRECATED&) {
    return Outcome::kOutOfMemory;
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    return Outcome::kHostError;
  }
}

}  // namespace test
