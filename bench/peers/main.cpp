// Measures all contenders in turns and prints how the library stands against each.

#include "contest.h"
#include "fresh_process.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using measuring::Times;
using peers::Measurement;

void printRow(const Measurement& ours, const Measurement& other, const Times& times) {
  const double nanoseconds = times.of(ours.name()).median;
  const double itsNanoseconds = times.of(other.name()).median;
  if (nanoseconds == 0 || itsNanoseconds == 0) return;
  const double ratio = nanoseconds / itsNanoseconds;
  std::printf("%-22s %12.1f  %-22s %12.1f %8.2f  %s\n", ours.work.c_str(), nanoseconds,
              other.contender.c_str(), itsNanoseconds, ratio, other.goal.verdict(ratio).c_str());
}

void printTable(const Times& times) {
  const std::vector<Measurement>& all = peers::measurements();
  std::printf("\n%-22s %12s  %-22s %12s %8s  %s\n", "work", "ours ns", "against", "its ns", "ratio",
              "goal");
  for (const char* work : peers::kWorks)
    for (const Measurement& ours : all)
      if (ours.work == work && ours.contender == peers::kOurs)
        for (const Measurement& other : all)
          if (other.work == work && &other != &ours) printRow(ours, other, times);
}

/// Binding symbols is part of loading, which is measured elsewhere, so it is over for all before
/// anything starts.
void bindAllSymbols(char** argv) {
  if (std::getenv("LD_BIND_NOW")) return;
  setenv("LD_BIND_NOW", "1", 1);
  execv("/proc/self/exe", argv);
  peers::fail("cannot start itself again");
}

}  // namespace

int main(int argc, char** argv) {
  bindAllSymbols(argv);
  peers::keepProcessFresh();

  measuring::takeArguments(argc, argv);
  peers::addMeasurements();
  printTable(measuring::runBenchmarks());
}
