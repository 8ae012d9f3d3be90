#include <gui_objects/BoundingVolume.h>
#include <gui_objects/Inset2d.h>
#include <gui_objects/Matrix4x4d.h>
#include <gui_objects/Points.h>
#include <gui_objects/Rectangles.h>
#include <gui_objects/exceptions.h>
#include <gui_objects/nearlyEqual.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>

namespace gui_objects {
namespace {

using Int = std::numeric_limits<int>;

/// As the processor converts: what does not fit becomes the most negative number.
int truncated(double number) {
  const bool fits = number > Int::min() - 1.0 && number < Int::max() + 1.0;  // false for NaN
  return fits ? static_cast<int>(number) : Int::min();
}

int saturatedSum(int a, int b) {
  return static_cast<int>(std::min<std::int64_t>(std::int64_t{a} + b, Int::max()));
}

}  // namespace

Point2i Point2d::asPoint2i() const noexcept {
  return {truncated(x), truncated(y)};
}

Rectangle2d::Rectangle2d(double xMin, double yMin, double width, double height)
    : xMin_(xMin),
      yMin_(yMin),
      width_(width),
      height_(height) {
  if (width < 0 || height < 0) throw RectangleCrossedPointsException();
}

Rectangle2i::Rectangle2i(int xMin, int yMin, int width, int height)
    : xMin_(xMin),
      yMin_(yMin),
      width_(width),
      height_(height) {
  if (width < 0 || height < 0) throw RectangleCrossedPointsException();
}

int Rectangle2i::getXMax() const noexcept {
  return saturatedSum(xMin_, width_);
}
int Rectangle2i::getYMax() const noexcept {
  return saturatedSum(yMin_, height_);
}

Inset2d::Inset2d(double xMin, double yMin, double xMax, double yMax)
    : xMin_(xMin),
      yMin_(yMin),
      xMax_(xMax),
      yMax_(yMax) {
  if (xMin < 0 || yMin < 0 || xMax < 0 || yMax < 0) throw InvalidInsetException();
}

BoundingVolume::BoundingVolume(const Point3d& minimum, const Point3d& maximum)
    : minimum_(minimum),
      maximum_(maximum) {
  if (!(getXWidth() >= 0 && getYWidth() >= 0 && getZWidth() >= 0)) throw InvalidWidthException();
}

Point3d BoundingVolume::getCenter() const noexcept {
  return {std::midpoint(minimum_.x, maximum_.x), std::midpoint(minimum_.y, maximum_.y),
          std::midpoint(minimum_.z, maximum_.z)};
}

bool nearlyEqual(double a, double b) noexcept {
  constexpr double kTolerance = 1e-12;
  return a == b || std::abs(a - b) / std::max({1.0, std::abs(a), std::abs(b)}) < kTolerance;
}

bool nearlyEqual(const Rectangle2d& a, const Rectangle2d& b) noexcept {
  return nearlyEqual(a.getXMin(), b.getXMin()) && nearlyEqual(a.getYMin(), b.getYMin()) &&
         nearlyEqual(a.getWidth(), b.getWidth()) && nearlyEqual(a.getHeight(), b.getHeight());
}

bool nearlyEqual(const Matrix4x4d& a, const Matrix4x4d& b) noexcept {
  return std::ranges::equal(a.elements(), b.elements(),
                            [](double x, double y) { return nearlyEqual(x, y); });
}

}  // namespace gui_objects
