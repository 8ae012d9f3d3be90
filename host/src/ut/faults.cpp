#include "SharedCount.h"

#include <messages/catalog.h>
#include <ut/faults.h>
#include <vcos/exceptions.h>
#include <vx/errors.h>

#include <atomic>
#include <string>

namespace vghost::faults {
namespace {

/// Counts events, and knows which of them fail. Threads may count at once; one at a time arms it.
class Counter {
 public:
  void arm(std::uint64_t nth, Repeat repeat) noexcept {
    repeat_ = repeat;
    failFrom_ = count_.get() + nth;
  }
  void disarm() noexcept { failFrom_ = kNever; }
  std::uint64_t count() const noexcept { return count_.get(); }

  bool next() noexcept {
    if (count_.add(1) < failFrom_.load(std::memory_order_relaxed)) [[likely]]
      return false;
    if (repeat_ == Repeat::Once) disarm();
    return true;
  }

 private:
  static constexpr std::uint64_t kNever = UINT64_MAX;

  Tally count_;
  std::atomic<std::uint64_t> failFrom_ = kNever;
  Repeat repeat_ = Repeat::Once;
};

constinit Counter allocations;
constinit Counter hostCalls;
constinit Failure hostCallFailure = Failure::HostError;

}  // namespace

void failAllocation(std::uint64_t nth, Repeat repeat) noexcept {
  allocations.arm(nth, repeat);
}

void failHostCall(std::uint64_t nth, Repeat repeat, Failure failure) noexcept {
  hostCalls.arm(nth, repeat);
  hostCallFailure = failure;
}

void disarm() noexcept {
  allocations.disarm();
  hostCalls.disarm();
}

std::uint64_t allocationCount() noexcept {
  return allocations.count();
}
std::uint64_t hostCallCount() noexcept {
  return hostCalls.count();
}

bool countAllocation() noexcept {
  return allocations.next();
}

void countHostCall(const char* operation) {
  if (!hostCalls.next()) [[likely]]
    return;
  if (hostCallFailure == Failure::ClassSystem)
    throw vcos::COSMsgException(std::string(operation) + " was told to fail.");
  vxErrMsgId(VORTIL::host::InjectedFailure(operation));
}

}  // namespace vghost::faults
