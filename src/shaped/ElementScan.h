#pragma once

/// The element scans and the rules for all elements, over arrays of one element type.

#include <graphics/datatype/shaped_rules.h>

namespace graphics::datatype::shaped {

/// The index of the first element that fails a scan; `count` if there is none. For the element
/// types of the numeric classes. Elements that pass cost one look at memory speed; behind a
/// negative zero or a NaN that passes, one at half of it.
template <NumericElement T>
std::size_t findFailing(const ElementScan& scan, const T* elements, std::size_t count);

/// The last failure of a scan; kNone if all elements pass.
template <NumericElement T>
Failure runScan(const ElementScan& scan, const T* elements, std::size_t count);

}  // namespace graphics::datatype::shaped

/// Uses a macro for each element type of the numeric classes: to make the templates for them.
#define VGDT_FOR_NUMERIC_ELEMENTS(Use)                                                           \
  Use(double) Use(float) Use(std::int8_t) Use(std::uint8_t) Use(std::int16_t) Use(std::uint16_t) \
      Use(std::int32_t) Use(std::uint32_t) Use(std::int64_t) Use(std::uint64_t)
