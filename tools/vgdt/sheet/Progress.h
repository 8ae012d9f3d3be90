#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace vgdt {

/// A line on a terminal that says how far a long piece of work has come. It is gone when this ends.
class Progress {
 public:
  /// A null stream shows nothing. `total` is what show() counts up to; a large one is shown at
  /// once.
  Progress(std::ostream* terminal, const std::string& name, std::size_t total);
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// May be called as often as one likes: the line is renewed ten times a second at most.
  void show(std::size_t done) {
    if (terminal_ && ++calls_ % kCallsBetweenLooks == 0) renew(done);
  }
  /// For something else to be printed.
  void clear();

 private:
  static constexpr unsigned kCallsBetweenLooks = 256;
  using Clock = std::chrono::steady_clock;

  void renew(std::size_t done);

  std::ostream* terminal_;
  std::string name_;
  std::size_t total_;
  unsigned calls_ = 0;
  Clock::time_point next_;
  std::size_t width_ = 0;  // of what stands there
};

}  // namespace vgdt
