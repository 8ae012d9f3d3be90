#pragma once

/// Points. No coordinate is checked.

#include <ut/export.h>

namespace gui_objects {

/// A point in whole numbers.
struct Point2i {
  int x = 0;
  int y = 0;

  bool operator==(const Point2i&) const = default;
};

/// A point in the plane:
///
///     gui_objects::Point2d{1.9, -1.9}.asPoint2i();  // {1, -1}
struct VGHOST_API Point2d {
  double x = 0;
  double y = 0;

  bool operator==(const Point2d&) const = default;

  /// The fractions are cut off. What is no `int`, also NaN, becomes the most negative one.
  Point2i asPoint2i() const noexcept;
};

/// A point in space.
struct Point3d {
  double x = 0;
  double y = 0;
  double z = 0;

  bool operator==(const Point3d&) const = default;
};

}  // namespace gui_objects
