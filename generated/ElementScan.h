#pragma once

/// The element scans and the rules for all elements, over arrays of one element type.

#include <graphics/datatype/shaped_rules.h>

namespace graphics::datatype::shaped {

/// The index of the first element that fails a scan; `count` if there is none. For the element
/// types of the numeric classes. Elements that pass cost one look at memory speed.
template <NumericElement T>
std::size_t findFailing(const ElementScan& scan, const T* elements, std::size_t count);

/// The last failure of a scan; kNone if all elements pass.
template <NumericElement T>
Failure runScan(const ElementScan& scan, const T* elements, std::size_t count);

}  // namespace graphics::datatype::shaped
