#pragma once

#include <csignal>

namespace vgdt {

/// Lets `handler` answer Ctrl-C in place of ending the program while it lives.
class InterruptGuard {
 public:
  explicit InterruptGuard(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;  // without SA_RESTART, so that reading ends
    sigaction(SIGINT, &action, &old_);
  }
  ~InterruptGuard() { sigaction(SIGINT, &old_, nullptr); }
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;

 private:
  struct sigaction old_ {};
};

}  // namespace vgdt
