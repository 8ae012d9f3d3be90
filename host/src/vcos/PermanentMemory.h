#pragma once

#include <cstddef>
#include <new>

namespace vcos {

/// Memory for what stays until the process ends, cut off large blocks: a table of some hundred
/// entries touches less memory so, and takes less time to fill.
class PermanentMemory {
 public:
  static constexpr std::size_t kAlignment = 8;

  static void* allocate(std::size_t size) {
    constexpr std::size_t kBlock = 32768;
    size = (size + kAlignment - 1) / kAlignment * kAlignment;
    if (size > kBlock) return ::operator new(size);
    if (size > left_) {
      next_ = static_cast<std::byte*>(::operator new(kBlock));
      left_ = kBlock;
    }
    left_ -= size;
    next_ += size;
    return next_ - size;
  }

 private:
  static inline constinit std::byte* next_ = nullptr;
  static inline constinit std::size_t left_ = 0;
};

/// The same for the standard containers. What they return is not used again.
template <class T>
struct PermanentAllocator {
  static_assert(alignof(T) <= PermanentMemory::kAlignment);
  using value_type = T;
  PermanentAllocator() = default;
  template <class Other>
  PermanentAllocator(const PermanentAllocator<Other>&) noexcept {}
  T* allocate(std::size_t count) {
    return static_cast<T*>(PermanentMemory::allocate(count * sizeof(T)));
  }
  void deallocate(T*, std::size_t) noexcept {}
  friend bool operator==(PermanentAllocator, PermanentAllocator) noexcept { return true; }
};

}  // namespace vcos
