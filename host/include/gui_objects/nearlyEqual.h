#pragma once

/// Equality but for rounding. Two numbers are nearly equal if |a - b| / max(1, |a|, |b|) is below
/// 1e-12, or if they are the same infinity. NaN is nearly equal to nothing.
///
///     gui_objects::nearlyEqual(0.1 + 0.2, 0.3);  // true

#include <ut/export.h>

namespace gui_objects {

class Matrix4x4d;
class Rectangle2d;

VGHOST_API bool nearlyEqual(double a, double b) noexcept;
/// Corner and size, number by number.
VGHOST_API bool nearlyEqual(const Rectangle2d& a, const Rectangle2d& b) noexcept;
/// Element by element.
VGHOST_API bool nearlyEqual(const Matrix4x4d& a, const Matrix4x4d& b) noexcept;

}  // namespace gui_objects
