#include "session/HostLog.h"

#include <utility>

namespace vgdt {

void HostLog::listen() {
  console_.emplace();
  warnings_.emplace();
}

std::vector<LogEntry> HostLog::take() {
  std::vector<LogEntry> entries;
  for (std::string& line : console_->lines())
    entries.emplace_back(std::move(line));
  for (const vghost::Warning& warning : warnings_->warnings())
    entries.emplace_back(warning);
  listen();
  return entries;
}

}  // namespace vgdt
