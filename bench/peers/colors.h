#pragma once

/// What the contenders share that make colours.

#include "contest.h"

#include <string>
#include <vector>

namespace peers {

/// Fractions of red, green and blue.
struct Rgb {
  double red;
  double green;
  double blue;
  bool operator==(const Rgb&) const = default;
};

/// What a colour is made from, and what it has to be.
template <class Given>
struct ColorInput {
  Given given;
  Rgb color;
};

inline constexpr ColorInput<const char*> kColorName{"red", {1, 0, 0}};
inline constexpr ColorInput<const char*> kColorAbbreviation{"r", {1, 0, 0}};
inline constexpr ColorInput<const char*> kColorNumbers{"[0.1 0.2 0.3]", {0.1, 0.2, 0.3}};

/// Adds the measurement of an operation that makes a colour and destroys what it returns. `rgbOf`
/// reads the result for the check that is done now, and takes no part in the measurement.
template <class Given, class Operation, class Read>
void competeWithColor(const char* work, const char* contender, Goal goal,
                      const ColorInput<Given>& input, Operation operation, Read rgbOf) {
  if (!(rgbOf(operation(input.given)) == input.color))
    fail(std::string(contender) + " makes the wrong colour at " + work);
  measure(work, contender, goal, std::vector<Given>{input.given}, [operation](Given given) {
    const auto made = operation(given);
    benchmark::DoNotOptimize(made);
  });
}

}  // namespace peers
