#include <ut/interrupts.h>

#include <atomic>

namespace {

constinit std::atomic<bool> isPending = false;
constinit std::atomic<bool> wasHandled = false;
constinit std::atomic<bool> isQuitting = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes one");

}  // namespace

bool utIsInterruptPending() noexcept {
  return isPending;
}
bool utWasInterruptHandled() noexcept {
  return wasHandled;
}
void utSetInterruptHandled(int handled) noexcept {
  wasHandled.store(handled != 0, std::memory_order_release);
}
bool inIsDbquitSet() noexcept {
  return isQuitting;
}

namespace vghost {

void requestInterrupt() noexcept {
  isPending = true;
}

bool takeInterrupt() noexcept {
  if (!isPending.exchange(false)) return false;
  wasHandled = true;
  return true;
}

void dropInterrupt() noexcept {
  isPending = false;
}

void setDbquit(bool isSet) noexcept {
  isQuitting = isSet;
}

}  // namespace vghost
