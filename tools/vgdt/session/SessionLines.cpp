#include "session/SessionLines.h"

#include "requests/LineReader.h"
#include "session/SessionText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace vgdt {

void SessionLines::serve(std::string_view line) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (++number_ == 1 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (const auto reply = session_.serve(line)) show(line, *reply);
}

void SessionLines::refuse(std::string problem) {
  ++number_;
  SessionReply reply;
  reply.failure = Failure{FailureKind::Request, "", std::move(problem)};
  show({}, reply);
}

void SessionLines::show(std::string_view line, const SessionReply& reply) {
  status_ = std::max(status_, reply.status());
  if (asJson_) return writeSessionReply(writer_, number_, reply);
  const std::string place = isInteractive_ ? "" : fmt::format("line {}: ", number_);
  printSessionReply(console_, place, line, reply);
}

ExitStatus serveSession(const Console& console, std::istream& input, std::string_view name,
                        bool asJson) {
  SessionLines lines(console, asJson, false);
  LineReader reader(input);
  while (!lines.isAtEnd()) {
    const auto read = reader.next();
    if (read == LineReader::Result::Line) lines.serve(reader.line());
    if (read == LineReader::Result::TooLong) lines.refuse("the line is longer than 8 MiB");
    if (read != LineReader::Result::End) continue;
    if (input.eof()) break;
    reportProblem(console, fmt::format("{} cannot be read", name));
    return kNotUnderstood;
  }
  return lines.status();
}

}  // namespace vgdt
