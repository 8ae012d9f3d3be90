#pragma once

#include <gui_objects/Points.h>
#include <ut/export.h>

namespace gui_objects {

/// A box in space with sides along the axes, all zero by default:
///
///     const gui_objects::BoundingVolume unit({0, 0, 0}, {1, 1, 1});
///     unit.getCenter().x;  // 0.5
class VGHOST_API BoundingVolume {
 public:
  BoundingVolume() = default;
  /// From opposite corners. Errors: InvalidWidthException for a width that is not 0 or more. That
  /// between NaN, or between equal infinities, is NaN.
  BoundingVolume(const Point3d& minimum, const Point3d& maximum);

  double getXMin() const noexcept { return minimum_.x; }
  double getYMin() const noexcept { return minimum_.y; }
  double getZMin() const noexcept { return minimum_.z; }
  double getXMax() const noexcept { return maximum_.x; }
  double getYMax() const noexcept { return maximum_.y; }
  double getZMax() const noexcept { return maximum_.z; }

  Point3d getCenter() const noexcept;
  double getXWidth() const noexcept { return maximum_.x - minimum_.x; }
  double getYWidth() const noexcept { return maximum_.y - minimum_.y; }
  double getZWidth() const noexcept { return maximum_.z - minimum_.z; }

 private:
  Point3d minimum_;
  Point3d maximum_;
};

}  // namespace gui_objects
