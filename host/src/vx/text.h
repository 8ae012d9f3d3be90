#pragma once

#include <vx/array.h>

#include <string_view>

namespace vghost {

/// The characters of a char array, valid as long as its elements. Null and an array of another
/// class raise "VORTIL:class:VORTILConversionError".
std::basic_string_view<vxChar> textOf(const vxArray* array);

}  // namespace vghost
