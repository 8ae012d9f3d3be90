#include "commands/Commands.h"
#include "requests/LineReader.h"
#include "session/LineEditor.h"
#include "session/Session.h"
#include "session/SessionText.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iostream>

namespace vgdt {
namespace {

/// Serves the lines of a session as they come.
class LineServer {
 public:
  LineServer(const Console& console, bool asJson, bool isInteractive)
      : console_(console),
        writer_(console.output),
        asJson_(asJson),
        isInteractive_(isInteractive) {}

  void serve(std::string_view line) {
    ++number_;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (const auto reply = session_.serve(line)) show(line, *reply);
  }
  void refuse(std::string problem) {
    ++number_;
    SessionReply reply;
    reply.failure = Failure{FailureKind::Request, "", std::move(problem)};
    show({}, reply);
  }

  const Session& session() const { return session_; }
  bool isAtEnd() const { return session_.hasEnded() || !console_.output; }
  ExitStatus status() const { return status_; }

 private:
  void show(std::string_view line, const SessionReply& reply) {
    status_ = std::max(status_, reply.status());
    if (asJson_) return writeSessionReply(writer_, number_, reply);
    const std::string place = isInteractive_ ? "" : fmt::format("line {}: ", number_);
    printSessionReply(console_, place, line, reply);
  }

  const Console& console_;
  JsonWriter writer_;
  bool asJson_;
  bool isInteractive_;
  Session session_;
  std::size_t number_ = 0;
  ExitStatus status_ = kDone;
};

ExitStatus runLines(const Console& console, std::istream& input, const std::string& name,
                    bool asJson) {
  LineServer server(console, asJson, false);
  LineReader reader(input);
  for (auto read = LineReader::Result::Line; !server.isAtEnd();) {
    read = reader.next();
    if (read == LineReader::Result::End) break;
    if (read == LineReader::Result::TooLong)
      server.refuse("the line is longer than 8 MiB");
    else
      server.serve(reader.line());
  }
  if (server.isAtEnd() || input.eof()) return server.status();
  reportProblem(console, fmt::format("{} cannot be read", name));
  return kNotUnderstood;
}

ExitStatus runInteractively(const Console& console, bool asJson) {
  LineServer server(console, asJson, true);
  LineEditor editor(
      [&server](std::string_view line) { return completionOf(server.session(), line); });
  if (!asJson)
    console.output << "\"help\" lists the commands, \"quit\" ends the session.\n" << std::flush;
  while (!server.isAtEnd()) {
    const auto line = editor.next();
    if (!line) break;
    server.serve(*line);
  }
  return server.status();
}

}  // namespace

ExitStatus runSession(const Console& console, const std::optional<std::string>& file, bool asJson) {
  if (file && *file != "-") {
    std::ifstream input(*file, std::ios::binary);
    return runLines(console, input, *file, asJson);
  }
  const bool isTerminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  return isTerminal && !file ? runInteractively(console, asJson)
                             : runLines(console, std::cin, "standard input", asJson);
}

}  // namespace vgdt
