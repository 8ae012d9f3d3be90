#pragma once

/// Colours as the drawing side of the host holds them. No channel is checked.
///
///     const gui_objects::Color4b bytes = gui_objects::Color4d(1, 0.5, 0, 1).asColor4b();
///     bytes.green();  // 128

#include <ut/export.h>

#include <cstdint>

namespace gui_objects {

class Color4d;

/// Red, green and blue as fractions.
class VGHOST_API Color3d {
 public:
  Color3d(double red, double green, double blue) : red_(red), green_(green), blue_(blue) {}

  double red() const noexcept { return red_; }
  double green() const noexcept { return green_; }
  double blue() const noexcept { return blue_; }

 private:
  double red_;
  double green_;
  double blue_;
};

/// Four bytes in the order red, green, blue, alpha: 255 is a whole.
class VGHOST_API Color4b {
 public:
  Color4b(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha)
      : bytes_{red, green, blue, alpha} {}

  std::uint8_t red() const noexcept { return bytes_[0]; }
  std::uint8_t green() const noexcept { return bytes_[1]; }
  std::uint8_t blue() const noexcept { return bytes_[2]; }
  std::uint8_t alpha() const noexcept { return bytes_[3]; }
  /// The four bytes in their order; they belong to this object.
  const std::uint8_t* data() const noexcept { return bytes_; }

  /// Each byte divided by 255.
  Color4d asColor4d() const noexcept;

 private:
  std::uint8_t bytes_[4];
};

/// Red, green, blue and alpha as fractions.
class VGHOST_API Color4d {
 public:
  Color4d(double red, double green, double blue, double alpha)
      : red_(red),
        green_(green),
        blue_(blue),
        alpha_(alpha) {}

  double red() const noexcept { return red_; }
  double green() const noexcept { return green_; }
  double blue() const noexcept { return blue_; }
  double alpha() const noexcept { return alpha_; }

  /// Each channel times 255, rounded to the nearest byte, halves up. What is below 0 is 0, what is
  /// above 1 is 255, and NaN is 0.
  Color4b asColor4b() const noexcept;

 private:
  double red_;
  double green_;
  double blue_;
  double alpha_;
};

}  // namespace gui_objects
