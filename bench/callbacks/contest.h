#pragma once

/// What the contenders at firing events and at queues share.

#include "../common/Comparisons.h"
#include "../common/measuring.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace callbacks {

/// The name of the library among the contenders.
inline constexpr const char* kOurs = "vgdatatypes";

/// What is fired on for the peers: an object with handlers by name. The library's own objects hold
/// theirs as properties. A name is the address of its text.
class Target {
 public:
  Target();

  /// What the listener of every peer does: it looks a handler up and calls it.
  void handle(const char* name) {
    const auto found = handlers_.find(name);
    if (found != handlers_.end()) found->second(*this);
  }

  std::uint64_t handled = 0;

 private:
  std::unordered_map<const char*, void (*)(Target&)> handlers_;
};

inline constexpr const char* kPress = "Press";

/// The one that all peers fire on.
Target& target();

/// Fails unless each of `operation`'s calls leads to so many more in `count`.
template <class Operation>
void verify(const std::string& contender, const std::uint64_t& count, std::uint64_t more,
            Operation operation) {
  for (int i = 0; i < 3; ++i) {
    const std::uint64_t before = count;
    operation();
    if (count - before != more) measuring::fail(contender + " does not call what it shall");
  }
}

/// Adds the measurement of one firing.
template <class Fire>
void addFiring(const std::string& name, const std::uint64_t& count, Fire fire) {
  verify(name, count, 1, fire);
  measuring::measure(name, [fire] {
    fire();
    return 0;
  });
}

/// How many wait in a queue.
struct QueueSize {
  const char* text;
  std::size_t count;
};
inline constexpr QueueSize kSizes[] = {{"1e4", 10000}, {"1e5", 100000}, {"1e6", 1000000}};

/// Adds the measurements of `queueAndServe(n)`, which puts so many into a queue and calls them all.
template <class QueueAndServe>
void addQueue(const std::string& contender, const std::uint64_t& count,
              QueueAndServe queueAndServe) {
  for (const QueueSize& size : kSizes) {
    if (size.count == kSizes[0].count)
      verify(contender, count, size.count, [&] { queueAndServe(size.count); });
    const auto run = [queueAndServe, size](benchmark::State& state) {
      for ([[maybe_unused]] auto each : state)
        queueAndServe(size.count);
      state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(size.count));
    };
    const std::string name = std::string("queue/") + size.text + "/" + contender;
    benchmark::RegisterBenchmark(name.c_str(), run);
  }
}

/// Adds the library, and the shares that its steps have.
void addLibrary();
/// Puts another contender on the list that addContenders() runs. It returns true, so that a global
/// can be set to it.
bool addContender(void (*add)());
/// Runs that list.
void addContenders();

/// Asks for the comparison of the library's part in a work with a peer's.
void compare(const std::string& work, const std::string& peer, measuring::Goal goal);
/// The same for the queues of all sizes.
void compareQueues(const std::string& peer);

}  // namespace callbacks
