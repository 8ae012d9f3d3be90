#pragma once

#include <ut/export.h>
#include <vx/array.h>

#include <utility>

/// Owner of an array that a long-lived object holds.
class VGHOST_API Vprotected_vxArray {
 public:
  Vprotected_vxArray() noexcept = default;
  /// Takes the array over.
  explicit Vprotected_vxArray(vxArray* array) noexcept : array_(array) {}
  ~Vprotected_vxArray() { vxDestroyArray(array_); }

  Vprotected_vxArray(Vprotected_vxArray&& other) noexcept
      : array_(std::exchange(other.array_, nullptr)) {}
  Vprotected_vxArray& operator=(Vprotected_vxArray&& other) noexcept {
    std::swap(array_, other.array_);
    return *this;
  }

  /// Takes the array out of the array-list context, so that it lives as long as this object.
  void myLocalize() noexcept;

  vxArray* get() const noexcept { return array_; }

 private:
  vxArray* array_ = nullptr;
};

struct VGHOST_API Vprotected_vxArray_helper {
  /// A shared data copy that stands on no list; null for null.
  [[nodiscard]] static vxArray* copy(const vxArray* array);
};
