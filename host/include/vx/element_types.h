#pragma once

/// The element types behind the class numbers of host arrays.

#include <vx/array.h>

#include <cstdint>
#include <stdexcept>
#include <type_traits>

namespace vghost {

/// Whether arrays of the class have plain elements: the twelve classes from logical to uint64.
constexpr bool hasPlainElements(vxClassID classID) noexcept {
  return classID == vxLOGICAL_CLASS || classID == vxCHAR_CLASS ||
         (classID >= vxDOUBLE_CLASS && classID <= vxUINT64_CLASS);
}

/// Calls `use` with the std::type_identity of the class's element type. A std::logic_error for a
/// class without plain elements.
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

}  // namespace vghost
