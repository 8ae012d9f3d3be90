// Measures all contenders in turns and prints how the library stands against each.

#include "contest.h"
#include "fresh_process.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

using peers::Goal;
using peers::Measurement;

/// Keeps the median of each measurement, or the only time where there are no repetitions.
class MedianReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override {
    PrintBasicContext(&std::cerr, context);
    return true;
  }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median") keep(run);
  }

 private:
  static void keep(const Run& run) {
    for (Measurement& measurement : peers::measurements()) {
      if (measurement.name() != run.run_name.function_name) continue;
      const auto items = run.counters.find("items_per_second");
      measurement.nanoseconds =
          items != run.counters.end()
              ? 1e9 / items->second.value
              : 1e9 * run.real_accumulated_time / static_cast<double>(run.iterations);
    }
  }
};

double limitOf(Goal goal) {
  switch (goal) {
    case Goal::kAhead:
      return 1;
    case Goal::kOneAndAHalf:
      return 1.5;
    case Goal::kTwice:
      return 2;
    case Goal::kNone:
      break;
  }
  return 0;
}

/// "below 1      met", or nothing for what has no goal.
std::string verdict(Goal goal, double ratio) {
  if (goal == Goal::kNone) return "";
  const bool ahead = goal == Goal::kAhead;
  const double limit = limitOf(goal);
  const bool met = ahead ? ratio < limit : ratio <= limit;
  char text[32];
  std::snprintf(text, sizeof text, "%s %-*g%s", ahead ? "below" : "at most", ahead ? 7 : 5, limit,
                met ? "met" : "missed");
  return text;
}

void printRow(const Measurement& ours, const Measurement& other) {
  const double ratio = ours.nanoseconds / other.nanoseconds;
  std::printf("%-20s %12.1f  %-22s %12.1f %8.2f  %s\n", ours.work.c_str(), ours.nanoseconds,
              other.contender.c_str(), other.nanoseconds, ratio,
              verdict(other.goal, ratio).c_str());
}

void printTable() {
  const std::vector<Measurement>& all = peers::measurements();
  std::printf("\n%-20s %12s  %-22s %12s %8s  %s\n", "work", "ours ns", "against", "its ns", "ratio",
              "goal");
  for (const char* work :
       {peers::kNameToValue, peers::kAbbreviationToValue, peers::kSetFromText, peers::kStartUp})
    for (const Measurement& ours : all)
      if (ours.work == work && ours.contender == peers::kOurs && ours.nanoseconds > 0)
        for (const Measurement& other : all)
          if (other.work == work && &other != &ours && other.nanoseconds > 0) printRow(ours, other);
}

/// Binding symbols is part of loading, which is measured elsewhere, so it is over for all before
/// anything starts.
void bindAllSymbols(char** argv) {
  if (std::getenv("LD_BIND_NOW")) return;
  setenv("LD_BIND_NOW", "1", 1);
  execv("/proc/self/exe", argv);
  peers::fail("cannot start itself again");
}

/// Arguments of the command line come last, so they win.
std::vector<char*> withDefaults(int argc, char** argv) {
  static char defaults[][48] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                "--benchmark_enable_random_interleaving=true",
                                "--benchmark_display_aggregates_only=true"};
  std::vector<char*> arguments{argv[0]};
  for (char* argument : defaults)
    arguments.push_back(argument);
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  return arguments;
}

}  // namespace

int main(int argc, char** argv) {
  bindAllSymbols(argv);
  peers::keepProcessFresh();

  std::vector<char*> arguments = withDefaults(argc, argv);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;

  peers::addMeasurements();
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  printTable();
}
