#pragma once

#include "session/SessionReply.h"

#include <ut/console.h>
#include <vx/errors.h>

#include <vector>

namespace vgdt {

/// Keeps what is printed on the host's console and what the host warns of while it lives. Two of
/// them end in the reverse order.
class HostLog {
 public:
  HostLog() { listen(); }

  /// What came since the last call: first the lines, then the warnings.
  std::vector<LogEntry> take();

 private:
  void listen();

  std::optional<vghost::ConsoleCapture> console_;
  std::optional<vghost::WarningCapture> warnings_;
};

}  // namespace vgdt
