#pragma once

#include "ExitStatus.h"
#include "commands/Console.h"
#include "session/Session.h"

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

namespace vgdt {

/// Serves the lines of a session one after the other and shows what they come to.
class SessionLines {
 public:
  SessionLines(const Console& console, bool asJson, bool isInteractive)
      : console_(console),
        writer_(console.output),
        asJson_(asJson),
        isInteractive_(isInteractive) {}

  void serve(std::string_view line);
  /// Answers a line that cannot be served.
  void refuse(std::string problem);

  const Session& session() const { return session_; }
  bool isAtEnd() const { return session_.hasEnded() || !console_.output; }
  /// That of the worst line so far.
  ExitStatus status() const { return status_; }

 private:
  void show(std::string_view line, const SessionReply& reply);

  const Console& console_;
  JsonWriter writer_;
  bool asJson_;
  bool isInteractive_;
  Session session_;
  std::size_t number_ = 0;  ///< of the present line
  ExitStatus status_ = kDone;
};

/// A session of all lines of a stream, which a person knows as `name`. kNotUnderstood also if it
/// cannot be read.
ExitStatus serveSession(const Console& console, std::istream& input, std::string_view name,
                        bool asJson);

}  // namespace vgdt
