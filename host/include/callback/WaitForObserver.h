#pragma once

#include <ut/export.h>

/// Is told of the waits of the host from when it is made until it is destroyed. Waits nest, and end
/// in the reverse order. One thread.
class VGHOST_API WaitForObserver {
 public:
  WaitForObserver();
  virtual ~WaitForObserver();
  WaitForObserver(const WaitForObserver&) = delete;
  WaitForObserver& operator=(const WaitForObserver&) = delete;

  virtual void waitForStarted() = 0;
  /// The wait that began last is over. An observer that was made during the wait is told as well.
  virtual void waitForFinished() = 0;
};

namespace vghost {

/// Begins a wait and tells the observers. If one of them throws, the wait has not begun, and those
/// that were told before are told that it is over.
VGHOST_API void startWait();
/// Ends the wait that began last and tells the observers. False if there is none.
VGHOST_API bool finishWait();

}  // namespace vghost
