#pragma once

#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/element_types.h>

#include <cstddef>
#include <span>

namespace vgdt {

using vghost::hasPlainElements;
using vghost::withElementType;

inline std::span<const std::size_t> dimensionsOf(const vxArray* array) {
  return {vxGetDimensions(array), vxGetNumberOfDimensions(array)};
}

/// Elements in storage order. `T` has to be the element type of the array's class.
template <class T>
std::span<const T> elementsOf(const vxArray* array) {
  return {static_cast<const T*>(vxGetData(array)), vxGetNumberOfElements(array)};
}

/// The imaginary parts of a complex array.
template <class T>
std::span<const T> imaginaryPartsOf(const vxArray* array) {
  return {static_cast<const T*>(vxGetImagData(array)), vxGetNumberOfElements(array)};
}

template <class T>
std::span<T> writableElementsOf(vxArray* array) {
  return {static_cast<T*>(vxGetWritableData(array)), vxGetNumberOfElements(array)};
}

template <class T>
std::span<T> writableImaginaryPartsOf(vxArray* array) {
  return {static_cast<T*>(vxGetWritableImagData(array)), vxGetNumberOfElements(array)};
}

/// A zeroed array of one of the element classes.
inline vcos::ArrayOwner makeArray(vxClassID classID, std::span<const std::size_t> dimensions,
                                  vxComplexity complexity = vxREAL) {
  return vcos::ArrayOwner(
      vxCreateNumericArray(dimensions.size(), dimensions.data(), classID, complexity));
}

}  // namespace vgdt
