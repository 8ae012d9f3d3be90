// Start-up meets each of its allocations and host calls failing, in a process of its own each time.

#include "faults/Obstacles.h"
#include "registry/RegisteredTypes.h"
#include "support/ChildProcess.h"
#include "support/HostError.h"

#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

namespace {

using test::Obstacle;
using test::Outcome;
using test::Progress;

bool isOnOffComplete() {
  return test::isComplete(test::registeredTypes().front());
}

/// What holds after one failure, or after it and all later ones.
void expectCleanFailure(char obstacle, Outcome outcome, bool fromThenOn) {
  Progress now = test::progress();
  const std::size_t all = test::registeredTypes().size();
  EXPECT_LE(now["in part"], 1U);
  if (obstacle == 'c') {
    EXPECT_EQ(outcome, Outcome::kHostError);
    EXPECT_STREQ(test::lastError().identifier, "VORTIL:host:InjectedFailure");
  } else if (outcome == Outcome::kSucceeded) {
    // Refused while a type was registered: only the rest of that type is lost.
    EXPECT_FALSE(fromThenOn);
    EXPECT_EQ(now["complete"], all - 1);
    EXPECT_TRUE(isOnOffComplete());
  } else if (outcome == Outcome::kHostError) {
    // Refused to on_off, which says so.
    EXPECT_EQ(test::lastError().identifier, test::registeredTypes().front().refusalRaises);
    EXPECT_FALSE(isOnOffComplete());
  } else {
    // Before a type was registered, or not for the class system to refuse: start-up has ended.
    EXPECT_EQ(outcome == Outcome::kClassSystem, obstacle == 's');
    EXPECT_LT(now["complete"], all);
  }
}

TEST(StartUpSweep, FailsCleanlyAtEveryAllocationAndHostCall) {
  // All types do the same, so those after the first few are met by a stride that comes to each of
  // their steps.
  constexpr std::uint64_t kAllUpTo = 150;
  constexpr std::uint64_t kStride = 7;
  constexpr std::uint64_t kMoreThanStartUpMakes = 10'000;
  auto* isOver = static_cast<bool*>(
      mmap(nullptr, sizeof(bool), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(isOver, MAP_FAILED);
  for (const Obstacle& obstacle : test::kObstacles) {
    for (const bool fromThenOn : {false, true}) {
      if (fromThenOn && obstacle.count == vghost::faults::hostCallCount) continue;
      *isOver = false;
      for (std::uint64_t nth = 1; !*isOver && nth < kMoreThanStartUpMakes;
           nth += nth < kAllUpTo ? 1 : kStride) {
        SCOPED_TRACE(testing::Message() << obstacle.name << " number " << nth
                                        << (fromThenOn ? " and all later ones" : ""));
        test::inChildProcess([&] {
          const std::uint64_t before = obstacle.count();
          obstacle.fail(nth, fromThenOn);
          const Outcome outcome = test::outcomeOf(VLInitialize_vgdatatypes);
          *isOver = obstacle.count() - before < nth;
          obstacle.heal();
          const Progress now = test::progress();
          if (*isOver)
            EXPECT_EQ(now.at("complete"), test::registeredTypes().size());
          else
            expectCleanFailure(obstacle.letter, outcome, fromThenOn);
          VLInitialize_vgdatatypes();  // has no effect any more
          EXPECT_EQ(test::progress(), now);
        });
      }
      EXPECT_TRUE(*isOver);
    }
  }
}

}  // namespace
