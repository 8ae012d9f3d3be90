#include "contest.h"

#include "Library.h"
#include "fresh_process.h"

#include <algorithm>
#include <random>

namespace peers {
namespace {

constexpr int kStartUpsPerRepetition = 50;

Inputs shuffled(Inputs inputs) {
  std::ranges::shuffle(inputs, std::mt19937(20));
  return inputs;
}

std::vector<void (*)()>& contenders() {
  static std::vector<void (*)()> list;
  return list;
}

/// Asked once: the library is not started in this process by then.
std::size_t typesToRegister() {
  static const std::size_t count =
      std::min(static_cast<std::size_t>(inFreshProcess(countLibraryTypes, 0)), kMostTypes);
  return count;
}

}  // namespace

Inputs exactInputs(std::span<const char* const> names) {
  Inputs inputs;
  for (const char* name : names)
    inputs.push_back({name, static_cast<int>(inputs.size())});
  return shuffled(inputs);
}

Inputs abbreviatedInputs() {
  return shuffled({{"s", 5},
                   {"sq", 5},
                   {"d", 6},
                   {"dia", 6},
                   {"p", 11},
                   {"pent", 11},
                   {"h", 12},
                   {"hexa", 12},
                   {"n", 13},
                   {"non", 13}});
}

std::vector<Measurement>& measurements() {
  static std::vector<Measurement> list;
  return list;
}

void verify(const std::string& contender, const Inputs& inputs,
            const std::function<int(const char*)>& operation) {
  for (const Input& input : inputs) {
    const int value = operation(input.text);
    if (value != input.value)
      fail(contender + " takes '" + input.text + "' for " + std::to_string(value) + ", not " +
           std::to_string(input.value));
  }
}

void competeAtStartUp(const char* contender, Goal goal, StartUp startUp) {
  measurements().push_back({kStartUp, contender, goal});
  const auto run = [startUp, types = typesToRegister()](benchmark::State& state) {
    for (auto _ : state)
      state.SetIterationTime(inFreshProcess(startUp, types));
  };
  benchmark::RegisterBenchmark(measurements().back().name().c_str(), run)
      ->UseManualTime()
      ->Iterations(kStartUpsPerRepetition);
}

bool addContender(void (*add)()) {
  contenders().push_back(add);
  return true;
}

void addMeasurements() {
  for (const auto add : contenders())
    add();
}

}  // namespace peers
