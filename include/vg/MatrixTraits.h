#pragma once

#include <vx/array.h>

#include <cstdint>

namespace vg {

/// The element type of host arrays of a class number. Only the classes with plain elements have
/// one.
template <int classID>
struct MatrixTraits;

namespace detail {

template <int classID, class Element>
struct MatrixTraitsOf {
  static constexpr vxClassID kClassID = static_cast<vxClassID>(classID);
  using ElementType = Element;
};

}  // namespace detail

template <>
struct MatrixTraits<vxLOGICAL_CLASS> : detail::MatrixTraitsOf<vxLOGICAL_CLASS, bool> {};
template <>
struct MatrixTraits<vxCHAR_CLASS> : detail::MatrixTraitsOf<vxCHAR_CLASS, vxChar> {};
template <>
struct MatrixTraits<vxDOUBLE_CLASS> : detail::MatrixTraitsOf<vxDOUBLE_CLASS, double> {};
template <>
struct MatrixTraits<vxSINGLE_CLASS> : detail::MatrixTraitsOf<vxSINGLE_CLASS, float> {};
template <>
struct MatrixTraits<vxINT8_CLASS> : detail::MatrixTraitsOf<vxINT8_CLASS, std::int8_t> {};
template <>
struct MatrixTraits<vxUINT8_CLASS> : detail::MatrixTraitsOf<vxUINT8_CLASS, std::uint8_t> {};
template <>
struct MatrixTraits<vxINT16_CLASS> : detail::MatrixTraitsOf<vxINT16_CLASS, std::int16_t> {};
template <>
struct MatrixTraits<vxUINT16_CLASS> : detail::MatrixTraitsOf<vxUINT16_CLASS, std::uint16_t> {};
template <>
struct MatrixTraits<vxINT32_CLASS> : detail::MatrixTraitsOf<vxINT32_CLASS, std::int32_t> {};
template <>
struct MatrixTraits<vxUINT32_CLASS> : detail::MatrixTraitsOf<vxUINT32_CLASS, std::uint32_t> {};
template <>
struct MatrixTraits<vxINT64_CLASS> : detail::MatrixTraitsOf<vxINT64_CLASS, std::int64_t> {};
template <>
struct MatrixTraits<vxUINT64_CLASS> : detail::MatrixTraitsOf<vxUINT64_CLASS, std::uint64_t> {};

}  // namespace vg

namespace VG = vg;  // callers know both spellings
