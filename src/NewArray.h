#pragma once

/// Host arrays in the making.

#include <gui_objects/AutoPtr.h>
#include <vx/array.h>

#include <algorithm>
#include <concepts>
#include <cstddef>

namespace graphics::datatype {

using ArrayPtr = gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>;

/// A new matrix with that many rows, of class double or int32, from its elements column by column.
/// It is the caller's.
template <std::size_t rows, class Number, std::size_t count>
requires std::same_as<Number, double> || std::same_as<Number, int> vxArray* newMatrix(
    const Number (&elements)[count]) {
  static_assert(count % rows == 0);
  constexpr vxClassID kClassID = std::same_as<Number, double> ? vxDOUBLE_CLASS : vxINT32_CLASS;
  ArrayPtr array(vxCreateNumericMatrix(rows, count / rows, kClassID, vxREAL));
  std::ranges::copy(elements, static_cast<Number*>(vxGetWritableData(array.get())));
  return array.release();
}

}  // namespace graphics::datatype
