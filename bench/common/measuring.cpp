#include "measuring.h"

#include <benchmark/benchmark.h>
#include <errno.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <utility>
#include <vector>

namespace measuring {
namespace {

/// Keeps the time of each repetition, and prints nothing but the machine.
class CollectingReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override {
    PrintBasicContext(&std::cerr, context);
    return true;
  }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.run_type == Run::RT_Iteration)
        nanoseconds_[run.run_name.function_name].push_back(nanosecondsOf(run));
  }

  Times times() const {
    std::map<std::string, Time> times;
    for (const auto& [name, repetitions] : nanoseconds_)
      times[name] = summarised(repetitions);
    return Times(std::move(times));
  }

 private:
  static double nanosecondsOf(const Run& run) {
    const auto items = run.counters.find("items_per_second");
    return items != run.counters.end()
               ? 1e9 / items->second.value
               : 1e9 * run.real_accumulated_time / static_cast<double>(run.iterations);
  }
  static Time summarised(std::vector<double> repetitions) {
    std::ranges::sort(repetitions);
    const std::size_t last = repetitions.size() - 1;
    const double median = (repetitions[last / 2] + repetitions[(last + 1) / 2]) / 2;
    return {median, (repetitions[last - last / 4] - repetitions[last / 4]) / median};
  }

  std::map<std::string, std::vector<double>> nanoseconds_;
};

}  // namespace

void fail(const std::string& message) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, message.c_str());
  std::exit(1);
}

Time Times::of(const std::string& benchmark) const {
  const auto found = times_.find(benchmark);
  return found == times_.end() ? Time{} : found->second;
}

void takeArguments(int argc, char** argv) {
  static char defaults[][48] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                "--benchmark_enable_random_interleaving=true"};
  // Those of the command line come last, so they win.
  std::vector<char*> arguments{argv[0]};
  for (char* argument : defaults)
    arguments.push_back(argument);
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) std::exit(1);
}

Times runBenchmarks() {
  CollectingReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.times();
}

bool Goal::isMet(double ratio) const {
  switch (kind_) {
    case Kind::kBelow:
      return ratio < limit_;
    case Kind::kAtMost:
      return ratio <= limit_;
    case Kind::kAtLeast:
      return ratio >= limit_;
    case Kind::kNone:
      break;
  }
  return true;
}

std::string Goal::verdict(double ratio, int width) const {
  if (kind_ == Kind::kNone) return "";
  const char* const word = kind_ == Kind::kBelow    ? "below"
                           : kind_ == Kind::kAtMost ? "at most"
                                                    : "at least";
  char goal[32];
  std::snprintf(goal, sizeof goal, "%s %g", word, limit_);
  char text[64];
  std::snprintf(text, sizeof text, "%-*s %s", width, goal, isMet(ratio) ? "met" : "missed");
  return text;
}

}  // namespace measuring
