#pragma once

#include "Types.h"

#include <string>
#include <vector>

namespace vgdt {

/// A value that was tried on a type.
struct Trial {
  std::string given;
  std::string outcome;  ///< the value's text, or the identifier of the error
};

/// Up to three values that a type takes and three that it refuses. The scalars are tried with
/// texts, the other types with literals.
struct Examples {
  std::vector<Trial> taken;
  std::vector<Trial> refused;
};
Examples findExamples(const Type& type);

}  // namespace vgdt
