#pragma once

#include "support/FailingNew.h"

#include <callback/VCallback.h>
#include <gtest/gtest.h>
#include <messages/exceptions.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

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

/// Calls `attempt(meet)` until the work that it lets meet() run meets no more obstacles: meet()
/// puts the first, the second, ... in its way, and all later ones too if asked, and returns the
/// outcome. An attempt has to leave nothing behind, but for the content of each callback that was
/// left by an exception. Returns how many obstacles were met.
template <class Attempt>
std::uint64_t sweep(const Obstacle& obstacle, bool fromThenOn, Attempt&& attempt) {
  constexpr std::uint64_t kFarTooMany = 5000;
  bool isOver = false;
  std::uint64_t nth = 0;
  while (!isOver && ++nth < kFarTooMany) {
    SCOPED_TRACE(testing::Message() << obstacle.name << " number " << nth
                                    << (fromThenOn ? " and all later ones" : ""));
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t blocks = vghost::liveBlocks();
    const std::size_t references = vghost::callbackReferences();
    attempt([&](const auto& work) {
      const std::uint64_t before = obstacle.count();
      obstacle.fail(nth, fromThenOn);
      const Outcome outcome = outcomeOf(work);
      isOver = obstacle.count() - before < nth;
      obstacle.heal();
      return outcome;
    });
    const std::size_t kept = vghost::callbackReferences() - references;
    EXPECT_EQ(vghost::liveArrays(), arrays + kept);
    EXPECT_EQ(vghost::liveBlocks(), blocks + kept);
  }
  EXPECT_TRUE(isOver) << "the work never ends";
  return nth - 1;
}

/// Of each kind, once and from then on.
template <class Attempt>
std::uint64_t sweep(Attempt&& attempt) {
  std::uint64_t met = 0;
  for (const Obstacle& obstacle : kObstacles)
    for (const bool fromThenOn : {false, true})
      met += sweep(obstacle, fromThenOn, attempt);
  return met;
}

}  // namespace test
