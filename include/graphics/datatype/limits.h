#pragma once

#include <graphics/datatype/export.h>
#include <gui_objects/exceptions.h>
#include <vx/array.h>

namespace graphics::datatype {

class Limits;
class LimitsWithInfs;

/// The two numbers of a value, of whatever class, as doubles in `out[0]` and `out[1]`. Integers of
/// 64 bits may lose digits. Always true.
///
///     double ends[2];
///     getLim(ends, limits);
///     const double length = ends[1] - ends[0];
///
/// Errors: gui_objects::NullArrayException or gui_objects::InvalidArrayClassException for a value
/// without an array.
VGDT_API bool getLim(double* out, const Limits& limits);
VGDT_API bool getLim(double* out, const LimitsWithInfs& limits);

namespace limits {

/// Reads two numbers from an array of any numeric class, for vg::TL::ArrayDispatcher.
struct ConvertExecutor {
  double lower = 0.0;
  double upper = 1.0;

  /// Errors: gui_objects::NullArrayException for null, and for an array without elements;
  /// gui_objects::InvalidArrayClassException for another number of elements than two (kept,
  /// although the class is not what is wrong).
  template <class Traits>
  void run(const vxArray* array) {
    if (!array) throw gui_objects::NullArrayException();
    const auto* const elements = static_cast<const typename Traits::ElementType*>(vxGetData(array));
    if (!elements) throw gui_objects::NullArrayException();
    if (vxGetNumberOfElements(array) != 2) throw gui_objects::InvalidArrayClassException();
    lower = static_cast<double>(elements[0]);
    upper = static_cast<double>(elements[1]);
  }

  [[noreturn]] void onError(vxClassID) { throw gui_objects::InvalidArrayClassException(); }

  void setData(double* out) const noexcept {
    out[0] = lower;
    out[1] = upper;
  }
};

}  // namespace limits

}  // namespace graphics::datatype
