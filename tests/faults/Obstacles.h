#pragma once

#include "support/FailingNew.h"

#include <messages/exceptions.h>
#include <ut/faults.h>
#include <vcos/exceptions.h>

#include <cstdint>
#include <new>

namespace test {

namespace faults = vghost::faults;

/// Something that can be counted and told to fail.
struct Obstacle {
  char letter;  ///< as in Obstacles
  const char* name;
  std::uint64_t (*count)();
  void (*fail)(std::uint64_t nth, bool fromThenOn);
  void (*heal)();
};

/// An operation of the host's faults as an Obstacle has it.
template <auto operation, auto... more>
void failHost(std::uint64_t nth, bool fromThenOn) {
  using faults::Repeat;
  operation(nth, fromThenOn ? Repeat::FromThenOn : Repeat::Once, more...);
}

inline constexpr Obstacle kObstacles[] = {
    {'n', "operator new", newCount, failNew, failNoNew},
    {'a', "host allocation", faults::allocationCount, failHost<faults::failAllocation>,
     faults::disarm},
    {'c', "host call", faults::hostCallCount,
     failHost<faults::failHostCall, faults::Failure::HostError>, faults::disarm},
    {'s', "call that the class system refuses", faults::hostCallCount,
     failHost<faults::failHostCall, faults::Failure::ClassSystem>, faults::disarm},
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
