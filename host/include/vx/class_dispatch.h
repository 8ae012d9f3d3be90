#pragma once

#include <ut/export.h>
#include <vx/array.h>

namespace vg::TL::detail {

/// What code that goes by the class of an array asks the host.
struct VGHOST_API ArrayDispatcherBase {
  /// The class of an array; for null a number that is no class (0).
  static vxClassID getClassID(const vxArray* array) noexcept;
};

}  // namespace vg::TL::detail

namespace VG = vg;  // callers know both spellings
