#pragma once

/// Rectangles with sides along the axes, made from a corner and a size:
///
///     const gui_objects::Rectangle2i window(10, 20, 640, 480);
///     window.getXMax();  // 650
///
/// Errors: RectangleCrossedPointsException for a negative width or height. NaN and infinities are
/// taken, and so are sizes of 0.

#include <ut/export.h>

namespace gui_objects {

/// In floating-point coordinates; all zero by default.
class VGHOST_API Rectangle2d {
 public:
  Rectangle2d() = default;
  Rectangle2d(double xMin, double yMin, double width, double height);

  double getXMin() const noexcept { return xMin_; }
  double getYMin() const noexcept { return yMin_; }
  double getWidth() const noexcept { return width_; }
  double getHeight() const noexcept { return height_; }

 private:
  double xMin_ = 0;
  double yMin_ = 0;
  double width_ = 0;
  double height_ = 0;
};

/// In whole coordinates; all zero by default.
class VGHOST_API Rectangle2i {
 public:
  Rectangle2i() = default;
  Rectangle2i(int xMin, int yMin, int width, int height);

  int getXMin() const noexcept { return xMin_; }
  int getYMin() const noexcept { return yMin_; }
  int getWidth() const noexcept { return width_; }
  int getHeight() const noexcept { return height_; }
  /// The corner plus the size, or the largest `int` if that is less.
  int getXMax() const noexcept;
  int getYMax() const noexcept;

  bool operator==(const Rectangle2i&) const = default;

 private:
  int xMin_ = 0;
  int yMin_ = 0;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace gui_objects
