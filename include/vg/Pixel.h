#pragma once

#include <graphics/datatype/export.h>

namespace vg {

/// How large a pixel is.
///
///     const vg::Pixel pixel(96);
///     pixel.getPixelsPerPoint();  // 1.333...
class VGDT_API Pixel {
 public:
  /// 72 pixels to the inch, so that a pixel is as large as a point.
  Pixel() = default;
  /// Anything that is not above 0, also NaN, stands for 72.
  explicit Pixel(double pixelsPerInch) noexcept {
    if (pixelsPerInch > 0) pixelsPerInch_ = pixelsPerInch;
  }

  double getPixelsPerInch() const noexcept { return pixelsPerInch_; }
  double getPixelsPerPoint() const noexcept { return pixelsPerInch_ / kPointsPerInch; }
  double getWidthInInches() const noexcept { return 1 / pixelsPerInch_; }
  double getHeightInInches() const noexcept { return 1 / pixelsPerInch_; }

 private:
  /// The point of desktop publishing.
  static constexpr double kPointsPerInch = 72;

  double pixelsPerInch_ = kPointsPerInch;
};

}  // namespace vg
