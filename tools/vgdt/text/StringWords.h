#pragma once

#include "text/TypeWords.h"

#include <optional>
#include <string>

namespace vgdt {

/// What a type of texts or line styles takes; none for another type. It explains a refusal by the
/// class, the size, or the first cell or style that does not fit.
std::optional<TypeWords> stringWords(const std::string& typeName);

}  // namespace vgdt
