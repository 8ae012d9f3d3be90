#pragma once

#include <vx/array.h>

#include <vector>

namespace graphics::datatype {

/// The elements of an array of class double or single, in storage order; none for null and for
/// another class.
inline std::vector<double> floatsOf(const vxArray* array) {
  std::vector<double> values;
  const auto list = [&values, array](const auto* elements) {
    values.assign(elements, elements + vxGetNumberOfElements(array));
  };
  const vxClassID classID = array ? vxGetClassID(array) : vxClassID();
  if (classID == vxDOUBLE_CLASS) list(static_cast<const double*>(vxGetData(array)));
  if (classID == vxSINGLE_CLASS) list(static_cast<const float*>(vxGetData(array)));
  return values;
}

}  // namespace graphics::datatype
