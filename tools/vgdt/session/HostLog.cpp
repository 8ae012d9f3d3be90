#include "session/HostLog.h"

#include <utility>

namespace vgdt {

void HostLog::takeLines() {
  for (std::string& line : console_.takeLines())
    entries_.emplace_back(std::move(line));
}

void HostLog::keep(vghost::Warning warning) {
  takeLines();
  entries_.emplace_back(std::move(warning));
}

void HostLog::keep(vghost::ErrorReport report) {
  takeLines();
  entries_.emplace_back(LoggedReport{std::move(report), std::exchange(reason_, {})});
}

void HostLog::add(LoggedResult result) {
  takeLines();
  entries_.emplace_back(std::move(result));
}

std::vector<LogEntry> HostLog::take() {
  takeLines();
  return std::exchange(entries_, {});
}

}  // namespace vgdt
