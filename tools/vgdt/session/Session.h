#pragma once

#include "session/Callbacks.h"
#include "session/HostLog.h"
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
  /// Runs one command, of a callback or of the line that is being served, and gives what it comes
  /// to. In a callback the log gets it if the command is one of those whose result is of use there.
  /// What is wrong is thrown.
  SessionResult run(std::string_view command, RunningCallback* callback, ErrorDetails& details);

  Objects& objects() { return objects_; }
  const Objects& objects() const { return objects_; }

  Callbacks& callbacks() { return callbacks_; }
  /// That of the line that is being served.
  HostLog& log() { return *log_; }

  /// Lets the interrupt that is pending at the end of the line stay so.
  void keepInterrupt() { keepsInterrupt_ = true; }
  /// Serves no further line.
  void end() { hasEnded_ = true; }
  bool hasEnded() const { return hasEnded_; }

 private:
  void endLine();

  Objects objects_;
  Callbacks callbacks_;
  HostLog* log_ = nullptr;
  bool keepsInterrupt_ = false;
  bool hasEnded_ = false;
};

}  // namespace vgdt
