#pragma once

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/HostAllocated.h>

namespace graphics::datatype {

namespace shaped {
struct ShapedType;
}

/// What the value classes of the shaped array types derive from: a host array that has passed the
/// test of its type, held in the host's memory.
///
///     const ColorMap map(array);              // raises unless the array is n-by-3 ...
///     const ShapedValue& value = map;
///     const vxArray* held = value.getPtr();   // stays the value's
class VGDT_API ShapedValue : public ArrayBase, public HostAllocated {
 public:
  std::size_t getMaxNumberOfValuesToCompare() const final;  ///< 32000

 protected:
  ShapedValue() noexcept = default;
  /// Raises the message of the last rule that the array broke, under "VORTIL:vg:shaped_arrays:",
  /// unless it is valid.
  ShapedValue(const vxArray* array, const shaped::ShapedType& type);
};

}  // namespace graphics::datatype
