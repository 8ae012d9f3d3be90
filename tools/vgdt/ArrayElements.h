#pragma once

#include <vcos/TypeAccess.h>
#include <vx/array.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <type_traits>

namespace vgdt {

/// Calls `use` with the std::type_identity of the class's element type. Only for the twelve element
/// classes, logical to uint64.
template <class Use>
decltype(auto) withElementType(vxClassID classID, Use&& use) {
  switch (classID) {
    case vxLOGICAL_CLASS:
      return use(std::type_identity<bool>());
    case vxCHAR_CLASS:
      return use(std::type_identity<vxChar>());
    case vxDOUBLE_CLASS:
      return use(std::type_identity<double>());
    case vxSINGLE_CLASS:
      return use(std::type_identity<float>());
    case vxINT8_CLASS:
      return use(std::type_identity<std::int8_t>());
    case vxUINT8_CLASS:
      return use(std::type_identity<std::uint8_t>());
    case vxINT16_CLASS:
      return use(std::type_identity<std::int16_t>());
    case vxUINT16_CLASS:
      return use(std::type_identity<std::uint16_t>());
    case vxINT32_CLASS:
      return use(std::type_identity<std::int32_t>());
    case vxUINT32_CLASS:
      return use(std::type_identity<std::uint32_t>());
    case vxINT64_CLASS:
      return use(std::type_identity<std::int64_t>());
    case vxUINT64_CLASS:
      return use(std::type_identity<std::uint64_t>());
    default:
      throw std::logic_error("the class has no plain elements");
  }
}

inline bool hasPlainElements(vxClassID classID) {
  return classID >= vxLOGICAL_CLASS && classID <= vxUINT64_CLASS;
}

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
