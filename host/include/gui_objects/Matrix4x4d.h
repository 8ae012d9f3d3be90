#pragma once

#include <ut/export.h>

#include <array>
#include <cstddef>

namespace gui_objects {

/// A transformation of space, the identity by default:
///
///     const gui_objects::Matrix4x4d identity;
///     identity.get(1, 1);  // 1
class VGHOST_API Matrix4x4d {
 public:
  /// The elements column by column.
  using Elements = std::array<double, 16>;

  Matrix4x4d() = default;
  explicit Matrix4x4d(const Elements& elements) : elements_(elements) {}

  /// Rows and columns count from 1 to 4.
  double get(int row, int column) const {
    return elements_.at(static_cast<std::size_t>(4 * (column - 1) + row - 1));
  }
  const Elements& elements() const noexcept { return elements_; }

 private:
  Elements elements_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

}  // namespace gui_objects
