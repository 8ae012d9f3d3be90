#pragma once

#include <vx/array.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

/// The ten numeric classes and the types of their elements. Everything that speaks of all of them
/// is made from this list. Double comes first, since most arrays are of that class.
#define VG_NUMERIC_CLASSES(Use)                                                         \
  Use(vxDOUBLE_CLASS, double) Use(vxSINGLE_CLASS, float) Use(vxINT8_CLASS, std::int8_t) \
      Use(vxUINT8_CLASS, std::uint8_t) Use(vxINT16_CLASS, std::int16_t)                 \
          Use(vxUINT16_CLASS, std::uint16_t) Use(vxINT32_CLASS, std::int32_t)           \
              Use(vxUINT32_CLASS, std::uint32_t) Use(vxINT64_CLASS, std::int64_t)       \
                  Use(vxUINT64_CLASS, std::uint64_t)

namespace vg {

/// The element type of host arrays of a class number. Only the classes with plain elements have
/// one:
///
///     using Element = vg::MatrixTraits<vxSINGLE_CLASS>::ElementType;  // float
template <int classID>
struct MatrixTraits;

namespace detail {

template <int classID, class Element>
struct MatrixTraitsOf {
  static constexpr vxClassID kClassID = static_cast<vxClassID>(classID);
  using ElementType = Element;
};

}  // namespace detail

#define VG_MATRIX_TRAITS(classID, Element) \
  template <>                              \
  struct MatrixTraits<classID> : detail::MatrixTraitsOf<classID, Element> {};
VG_NUMERIC_CLASSES(VG_MATRIX_TRAITS)
VG_MATRIX_TRAITS(vxLOGICAL_CLASS, bool)
VG_MATRIX_TRAITS(vxCHAR_CLASS, vxChar)
#undef VG_MATRIX_TRAITS

#define VG_CLASS_ID(classID, Element) classID,
inline constexpr vxClassID kNumericClasses[] = {VG_NUMERIC_CLASSES(VG_CLASS_ID)};
#undef VG_CLASS_ID

constexpr bool isNumericClass(vxClassID classID) {
  return std::ranges::find(kNumericClasses, classID) != std::ranges::end(kNumericClasses);
}

}  // namespace vg

namespace VG = vg;  // callers know both spellings
