#pragma once

#include "Values.h"

#include <vx/array.h>

#include <optional>
#include <string>
#include <vector>

namespace vgdt {

/// A value that a type has refused.
struct Refusal {
  const Type& type;
  const GivenValue& given;
  const vxArray* array;  ///< what a given literal describes; null for a text
  const Failure& failure;
};

/// What a user is told of a refusal besides the error and what the type takes.
struct Explanation {
  std::vector<std::string> faults = {};      ///< what is wrong with the value
  std::vector<std::string> candidates = {};  ///< what an ambiguous text may stand for
  std::optional<std::string> nearest = {};   ///< the name that was probably meant
};

/// How the types of a family, or a single type, explain what they refuse.
using Explain = Explanation (*)(const Refusal& refusal);

/// The text that was given, also as a char array, up to its first NUL; none if another array was.
std::optional<std::string> textTried(const Refusal& refusal);

/// For a type whose values are names.
Explanation explainNames(const Refusal& refusal);

}  // namespace vgdt
