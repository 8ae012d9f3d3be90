#pragma once

#include <vx/literal.h>

namespace vgdt {

using vghost::formatLiteral;
using vghost::formatLiteralRows;
using vghost::kAllElements;
using vghost::sizeAndClass;

}  // namespace vgdt
