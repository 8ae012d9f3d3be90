#pragma once

#include "literal/Literal.h"
#include "session/Objects.h"
#include "session/SessionReply.h"

#include <optional>
#include <string_view>

namespace vgdt {

/// Objects, and the commands that make, change and show them. The library has to have started up.
class Session {
 public:
  Session();

  /// The reply to a line; none for a blank one and for a comment.
  std::optional<SessionReply> serve(std::string_view line);
  /// Runs one command and gives what it comes to. Words that `words` knows stand for values and
  /// for objects as those of the session do, and before them. What is wrong is thrown.
  SessionResult run(std::string_view command, const WordResolver& words, ErrorDetails& details);

  Objects& objects() { return objects_; }
  const Objects& objects() const { return objects_; }

  /// Serves no further line.
  void end() { hasEnded_ = true; }
  bool hasEnded() const { return hasEnded_; }

 private:
  Objects objects_;
  bool hasEnded_ = false;
};

}  // namespace vgdt
