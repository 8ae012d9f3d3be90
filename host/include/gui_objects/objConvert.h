#pragma once

#include <gui_objects/Matrix4x4d.h>
#include <ut/export.h>
#include <vx/array.h>

/// Between objects of the drawing side and host arrays:
///
///     const gui_objects::Matrix4x4d matrix = vg::objConvert::toMatrix4x4d(array);
namespace vg::objConvert {

/// A 4-by-4 double array, which belongs to the caller.
[[nodiscard]] VGHOST_API vxArray* toVxArray(const gui_objects::Matrix4x4d& matrix);

/// From a 4-by-4 array of a numeric class.
///
/// Errors, in this order: gui_objects::InvalidArrayClassException for another class and for null,
/// gui_objects::InvalidArrayShapeException for another size, gui_objects::NullArrayException for an
/// array without data.
VGHOST_API gui_objects::Matrix4x4d toMatrix4x4d(const vxArray* array);

}  // namespace vg::objConvert

namespace VG = vg;  // callers know both spellings
