#pragma once

#include <vx/literal.h>

namespace vgdt {

using vghost::numberText;

}  // namespace vgdt
