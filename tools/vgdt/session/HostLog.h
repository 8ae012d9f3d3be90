#pragma once

#include "session/SessionReply.h"

#include <ut/console.h>
#include <vx/errors.h>

#include <string>
#include <utility>
#include <vector>

namespace vgdt {

/// Keeps what is printed on the host's console, what the host warns of and what is reported to it
/// while it lives, in order. Two of them end in the reverse order.
class HostLog final : private vghost::WarningCapture, private vghost::ReportCapture {
 public:
  void add(LoggedResult result);
  /// Why a callback has failed, for the report of that which may follow.
  void noteReason(std::string reason) { reason_ = std::move(reason); }
  /// What came since the last call.
  std::vector<LogEntry> take();

 private:
  void keep(vghost::Warning warning) override;
  void keep(vghost::ErrorReport report) override;
  void takeLines();

  vghost::ConsoleCapture console_;
  std::vector<LogEntry> entries_;
  std::string reason_;
};

}  // namespace vgdt
