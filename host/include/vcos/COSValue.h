#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <type_traits>

namespace vcos {

/// One 64-bit word without a type tag. The data type or conversion that gets it knows which of the
/// named readings applies.
class COSValue {
 public:
  /// The null word: no object, false, zero.
  constexpr COSValue() noexcept = default;

  static COSValue fromPointer(const void* object) noexcept {
    return COSValue(reinterpret_cast<std::uintptr_t>(object));
  }
  static constexpr COSValue fromLogical(bool value) noexcept { return COSValue(value ? 1U : 0U); }
  /// Widened to 64 bits, with its sign if it has one.
  template <std::integral T>
  static constexpr COSValue fromInteger(T value) noexcept {
    return COSValue(static_cast<std::uint64_t>(value));
  }
  static constexpr COSValue fromDouble(double value) noexcept {
    return COSValue(std::bit_cast<std::uint64_t>(value));
  }

  template <class T>
  T* asPointer() const noexcept {
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(bits_));
  }
  /// Any word but zero is true.
  constexpr bool asLogical() const noexcept { return bits_ != 0; }
  /// The low sizeof(T) bytes.
  template <std::integral T>
  constexpr T asInteger() const noexcept {
    return static_cast<T>(bits_);
  }
  constexpr double asDouble() const noexcept { return std::bit_cast<double>(bits_); }

  constexpr bool isNull() const noexcept { return bits_ == 0; }
  constexpr std::uint64_t bits() const noexcept { return bits_; }

  /// The same word. Whether two values are equal is for their data type to say.
  friend constexpr bool operator==(COSValue, COSValue) noexcept = default;

 private:
  explicit constexpr COSValue(std::uint64_t bits) noexcept : bits_(bits) {}

  std::uint64_t bits_ = 0;
};

static_assert(sizeof(COSValue) == 8 && std::is_trivially_copyable_v<COSValue>);

}  // namespace vcos
