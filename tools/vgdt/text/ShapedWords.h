#pragma once

#include "text/TypeWords.h"

#include <graphics/datatype/shaped_rules.h>

namespace vgdt {

/// What a shaped array type takes, in words made from its rules. It explains a refusal by the tests
/// that did not hold.
TypeWords shapedWords(const graphics::datatype::shaped::ShapedType& type);

}  // namespace vgdt
