#pragma once

#include "session/SessionReply.h"

#include <ut/console.h>
#include <vx/errors.h>

#include <vector>

namespace vgdt {

/// Keeps what is printed on the host's console and what the host warns of while it lives, in order.
/// Two of them end in the reverse order.
class HostLog final : private vghost::WarningCapture {
 public:
  /// What came since the last call.
  std::vector<LogEntry> take();

 private:
  void keep(vghost::Warning warning) override;
  void takeLines();

  vghost::ConsoleCapture console_;
  std::vector<LogEntry> entries_;
};

}  // namespace vgdt
