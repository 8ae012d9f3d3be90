#pragma once

#include "text/TypeWords.h"

#include <optional>
#include <string>

namespace vgdt {

/// What a type of geometry, or a number with a range, takes; none for other types. It explains a
/// refusal by the first test that does not hold.
std::optional<TypeWords> geometryWords(const std::string& typeName);

}  // namespace vgdt
