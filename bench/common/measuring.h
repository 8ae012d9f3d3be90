#pragma once

/// What the programs that compare contenders share: the run of what is registered, and goals.

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>

namespace measuring {

/// Says what is wrong and ends the process.
[[noreturn]] void fail(const std::string& message);

/// What the repetitions of a benchmark took, in nanoseconds of processor time for one item.
struct Time {
  double median = 0;  ///< 0 if it was not measured
  double spread = 0;  ///< the middle half of the repetitions, as a share of the median
};

/// By the names of the benchmarks.
class Times {
 public:
  explicit Times(std::map<std::string, Time> times) : times_(std::move(times)) {}
  Time of(const std::string& benchmark) const;

 private:
  std::map<std::string, Time> times_;
};

/// Takes the arguments of Google Benchmark. Those that are not given ask for nine repetitions of
/// all benchmarks in a random order.
void takeArguments(int argc, char** argv);

/// Runs the registered benchmarks. Each has to set the number of items that it has processed, or
/// counts as one item for each iteration in real time.
Times runBenchmarks();

/// Adds the measurement of `operation(context)`, where `makeContext()` is not measured.
template <class MakeContext, class Operation>
void measure(const std::string& name, MakeContext makeContext, Operation operation) {
  benchmark::RegisterBenchmark(name.c_str(), [makeContext, operation](benchmark::State& state) {
    const auto context = makeContext();
    benchmark::DoNotOptimize(operation(context));  // from here on the caches are warm
    for (auto _ : state)
      benchmark::DoNotOptimize(operation(context));
    state.SetItemsProcessed(state.iterations());
  });
}

template <class Operation>
void measure(const std::string& name, Operation operation) {
  measure(
      name, [] { return 0; }, [operation](int) { return operation(); });
}

/// What a ratio shall be.
class Goal {
 public:
  static const Goal kNone;
  static const Goal kAhead;
  static const Goal kOneAndAHalf;
  static const Goal kTwice;

  static constexpr Goal atMost(double limit) { return {Kind::kAtMost, limit}; }
  static constexpr Goal atLeast(double limit) { return {Kind::kAtLeast, limit}; }

  /// "below 1      met", the first word padded to a width; nothing if there is no goal.
  std::string verdict(double ratio, int width = 12) const;
  bool isMet(double ratio) const;
  bool operator==(const Goal&) const = default;

 private:
  enum class Kind { kNone, kBelow, kAtMost, kAtLeast };

  constexpr Goal(Kind kind, double limit) : kind_(kind), limit_(limit) {}

  Kind kind_;
  double limit_;
};

inline constexpr Goal Goal::kNone{Kind::kNone, 0};
inline constexpr Goal Goal::kAhead{Kind::kBelow, 1};
inline constexpr Goal Goal::kOneAndAHalf = atMost(1.5);
inline constexpr Goal Goal::kTwice = atMost(2);

}  // namespace measuring
