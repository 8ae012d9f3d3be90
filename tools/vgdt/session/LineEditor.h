#pragma once

#include "session/Completion.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vgdt {

/// Lets a person edit lines on the terminal of standard input and output, with completion and with
/// a history that is kept from one session to the next.
class LineEditor {
 public:
  using Complete = std::function<Completion(std::string_view line)>;

  explicit LineEditor(Complete complete);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  /// The next line, without its line feed; empty for one that Ctrl-C has given up, none at the end.
  std::optional<std::string> next();

 private:
  struct Editor;
  std::unique_ptr<Editor> editor_;
};

}  // namespace vgdt
