#pragma once

#include <sys/single_threaded.h>

#include <atomic>
#include <cstddef>

namespace vghost {

/// A count for tests, which never takes longer than a plain number. It is exact as long as one
/// thread counts; where several do at once, some of it may get lost.
class Tally {
 public:
  std::size_t get() const noexcept { return count_.load(std::memory_order_relaxed); }
  /// The count after the change.
  std::size_t add(std::size_t change) noexcept {
    const std::size_t changed = get() + change;
    count_.store(changed, std::memory_order_relaxed);
    return changed;
  }
  std::size_t subtract(std::size_t change) noexcept { return add(0 - change); }

 private:
  std::atomic<std::size_t> count_ = 0;
};

/// A count that several threads may change at once. While the process has one thread, which the C
/// library knows, it takes no longer than a plain number.
class SharedCount {
 public:
  constexpr SharedCount() noexcept = default;

  std::size_t get() const noexcept { return count_.load(std::memory_order_acquire); }

  /// The count after the change.
  std::size_t add(std::size_t change) noexcept {
    if (__libc_single_threaded) {
      const std::size_t changed = count_.load(std::memory_order_relaxed) + change;
      count_.store(changed, std::memory_order_relaxed);
      return changed;
    }
    return count_.fetch_add(change, std::memory_order_acq_rel) + change;
  }
  std::size_t subtract(std::size_t change) noexcept { return add(0 - change); }

 private:
  std::atomic<std::size_t> count_ = 0;
};

}  // namespace vghost
