#pragma once

/// What the contenders of the peer benchmark share: the works, the names of an enumerated type, the
/// checks that a contender is right, and the list of what is measured.

#include "../common/measuring.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace peers {

using measuring::fail;
using measuring::Goal;

/// The names of MarkerStyle. The value of a name is its place.
inline constexpr std::array<const char*, 14> kNames{"+",      "o",         "*",        ".",   "x",
                                                    "square", "diamond",   "v",        "^",   ">",
                                                    "<",      "pentagram", "hexagram", "none"};

struct Input {
  const char* text;
  int value;
};
using Inputs = std::vector<Input>;

/// Each name with its place as value, in an order that a fixed seed has shuffled.
Inputs exactInputs(std::span<const char* const> names = kNames);
/// Beginnings of one name each, shuffled likewise.
Inputs abbreviatedInputs();

/// The works, as they are called in the table.
inline constexpr const char* kNameToValue = "nameToValue";
inline constexpr const char* kAbbreviationToValue = "abbreviationToValue";
inline constexpr const char* kSetFromText = "setFromText";
inline constexpr const char* kColorLookUp = "colorLookUp";
inline constexpr const char* kColorFromName = "colorFromName";
inline constexpr const char* kColorFromAbbreviation = "colorFromAbbreviation";
inline constexpr const char* kColorFromNumbers = "colorFromNumbers";
inline constexpr const char* kColorFromArray = "colorFromArray";
inline constexpr const char* kPositionToPixels = "positionToPixels";
inline constexpr const char* kPositionToPoints = "positionToPoints";
inline constexpr const char* kPointToPixels = "pointToPixels";
inline constexpr const char* kPositionFromText = "positionFromText";
inline constexpr const char* kPositionFromArray = "positionFromArray";
inline constexpr const char* kStartUp = "startUp";
/// In the order of the table.
inline constexpr std::array kWorks{kNameToValue,       kAbbreviationToValue,
                                   kSetFromText,       kColorLookUp,
                                   kColorFromName,     kColorFromAbbreviation,
                                   kColorFromNumbers,  kColorFromArray,
                                   kPositionToPixels,  kPositionToPoints,
                                   kPointToPixels,     kPositionFromText,
                                   kPositionFromArray, kStartUp};

/// The name of the library among the contenders.
inline constexpr const char* kOurs = "vgdatatypes";

/// One contender at one work, for one text or one start-up.
struct Measurement {
  std::string work;
  std::string contender;
  Goal goal;  ///< what the library's time may be of the contender's

  std::string name() const { return work + '/' + contender; }
};

/// In the order in which they were added.
std::vector<Measurement>& measurements();

/// The most types that a start-up is asked for.
inline constexpr std::size_t kMostTypes = 108;

/// A contender's start-up: registers that many types in a process in which nothing of its kind has
/// been done, and returns the seconds.
using StartUp = double (*)(std::size_t types);

/// Fails unless the contender gives the value of each text.
void verify(const std::string& contender, const Inputs& inputs,
            const std::function<int(const char*)>& operation);

/// Adds the measurement of an operation, which is called with each of the inputs in turn.
template <class Given, class Operation>
void measure(const char* work, const char* contender, Goal goal, std::vector<Given> inputs,
             Operation operation) {
  measurements().push_back({work, contender, goal});
  const auto run = [inputs = std::move(inputs), operation](benchmark::State& state) {
    for (auto _ : state)
      for (const Given& input : inputs)
        operation(input);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(inputs.size()));
  };
  benchmark::RegisterBenchmark(measurements().back().name().c_str(), run);
}

/// The same for an operation that takes a text and whose result is the value, which is verified
/// now.
template <class Operation>
void compete(const char* work, const char* contender, Goal goal, const Inputs& inputs,
             Operation operation) {
  verify(contender, inputs, operation);
  measure(work, contender, goal, inputs,
          [operation](const Input& input) { benchmark::DoNotOptimize(operation(input.text)); });
}

/// The numbers of a value: three of a colour, four of a rectangle.
template <std::size_t count>
using Numbers = std::array<double, count>;

/// What a value is made from, and the numbers that it has to have.
template <class Given, std::size_t count>
struct Task {
  Given given;
  Numbers<count> numbers;
};

/// Adds the measurement of an operation that makes a value and destroys what it returns.
/// `numbersOf` reads the result for the check that is done now, and takes no part in the
/// measurement. The loop makes sixteen values in each round, so that its own time hardly counts.
template <class Given, std::size_t count, class Operation, class Read = std::identity>
void competeInMaking(const char* work, const char* contender, Goal goal,
                     const Task<Given, count>& task, Operation operation, Read numbersOf = {}) {
  if (numbersOf(operation(task.given)) != task.numbers)
    fail(std::string(contender) + " makes the wrong value at " + work);
  measure(work, contender, goal, std::vector<Given>(16, task.given),
          [operation](const Given& given) {
            const auto made = operation(given);
            benchmark::DoNotOptimize(made);
          });
}

/// Adds the measurement of a start-up, which gets a fresh process each time.
void competeAtStartUp(const char* contender, Goal goal, StartUp startUp);

/// Processor seconds that `work` takes.
template <class Work>
double secondsOf(Work work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  };
  const double begin = now();
  work();
  return now() - begin;
}

/// Puts a function that adds a contender's measurements on the list that main() runs. It returns
/// true, so that a global can be set to it.
bool addContender(void (*add)());
/// Runs that list.
void addMeasurements();

}  // namespace peers
