#include "sheet/Progress.h"

#include "text/TextDisplay.h"

#include <fmt/format.h>

namespace vgdt {
namespace {

constexpr std::chrono::milliseconds kPause{100};
constexpr std::size_t kNameColumns = 50;
constexpr std::size_t kLarge = std::size_t{8} << 20U;

}  // namespace

Progress::Progress(std::ostream* terminal, const std::string& name, std::size_t total)
    : terminal_(terminal),
      total_(total),
      next_(Clock::now()) {
  if (!terminal) return;
  name_ = onOneLine(name, kNameColumns);
  if (total >= kLarge)
    renew(0);
  else
    next_ += kPause;
}

void Progress::renew(std::size_t done) {
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kPause;
  clear();
  const double share = static_cast<double>(done) / static_cast<double>(total_);
  const std::string line = fmt::format("{}: {:.0f} % checked", name_, 100 * share);
  width_ = displayWidth(line);
  *terminal_ << line << std::flush;
}

void Progress::clear() {
  if (width_ == 0) return;
  *terminal_ << '\r' << std::string(width_, ' ') << '\r' << std::flush;
  width_ = 0;
}

}  // namespace vgdt
