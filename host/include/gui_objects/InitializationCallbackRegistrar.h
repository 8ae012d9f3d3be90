#pragma once

#include <ut/export.h>

#include <vector>

namespace gui_objects {

/// A queue of initialisers that run once, when the owner says so.
class VGHOST_API InitializationCallbackRegistrar {
 public:
  void addCallback(void (*callback)());

  /// Calls every queued function once, in the order of queueing. If one throws, the exception
  /// passes through; that function is not called again, and those behind it stay queued.
  void initialize();

 private:
  std::vector<void (*)()> callbacks_;
};

}  // namespace gui_objects
