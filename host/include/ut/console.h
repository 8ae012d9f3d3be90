#pragma once

#include <ut/export.h>

#include <string>
#include <vector>

/// Writes a formatted text to the host's console: to the innermost ConsoleCapture of the thread if
/// there is one, to standard output otherwise.
[[gnu::format(printf, 1, 2)]] VGHOST_API void utPrintf(const char* format, ...);

namespace vghost {

/// Keeps what is written to the host's console while it lives. Captures nest; the innermost gets
/// the text.
class VGHOST_API ConsoleCapture {
 public:
  ConsoleCapture();
  ~ConsoleCapture();
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;

  /// The lines so far, without their line feeds. A last line that has not ended yet counts too.
  std::vector<std::string> lines() const;
  /// The same, and then there are none.
  std::vector<std::string> takeLines();

 private:
  friend void ::utPrintf(const char* format, ...);

  std::string text_;
  ConsoleCapture* outer_;
};

}  // namespace vghost
