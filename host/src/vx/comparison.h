#pragma once

#include <vx/array.h>

namespace vghost {

/// Whether two arrays have the same class, size and content: numbers by their bits, objects and
/// function handles by what they refer to. Either may be null.
bool areSame(const vxArray* a, const vxArray* b);

}  // namespace vghost
