#pragma once

#include <ut/export.h>

namespace gui_objects {

/// The margins of a rectangle, all zero by default:
///
///     const gui_objects::Inset2d margins(1, 2, 3, 4);
///     margins.getYMax();  // 4, above the rectangle
class VGHOST_API Inset2d {
 public:
  Inset2d() = default;
  /// Left, bottom, right and top. Errors: InvalidInsetException for a negative margin.
  Inset2d(double xMin, double yMin, double xMax, double yMax);

  double getXMin() const noexcept { return xMin_; }
  double getYMin() const noexcept { return yMin_; }
  double getXMax() const noexcept { return xMax_; }
  double getYMax() const noexcept { return yMax_; }

  bool operator==(const Inset2d&) const = default;

 private:
  double xMin_ = 0;
  double yMin_ = 0;
  double xMax_ = 0;
  double yMax_ = 0;
};

}  // namespace gui_objects
