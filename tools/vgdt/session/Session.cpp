#include "session/Session.h"

#include "Classes.h"
#include "session/CommandWords.h"
#include "session/HostLog.h"
#include "session/SessionCommands.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <sv/features.h>

namespace vgdt {
namespace {

const SessionCommand& requireCommand(std::string_view command) {
  if (const SessionCommand* found = findCommand(command)) return *found;
  const std::string_view name = command.substr(0, command.find_first_of(kBlanks));
  std::vector<std::string> names;
  for (const SessionCommand& known : sessionCommands())
    names.emplace_back(known.name);
  throw RequestError(fmt::format(
      "there is no command \"{}\"{}", shortened(name),
      nearestOr(name, names, fmt::format("the commands are {}", fmt::join(names, ", ")))));
}

}  // namespace

Session::Session() {
  svRegisterFeature("VORTILUsingSingleGraphics", 1, nullptr, nullptr);
}

SessionResult Session::run(std::string_view command, const WordResolver& words,
                           ErrorDetails& details) {
  const std::string_view line = withoutBlanks(withoutComment(command));
  const SessionCommand& found = requireCommand(line);
  const bool hasComment = withoutComment(command).size() != command.size();
  const Arguments arguments = found.usage.match(line, hasComment);
  Call call{*this, command, arguments, words, details};
  return found.run(call);
}

std::optional<SessionReply> Session::serve(std::string_view line) {
  if (withoutBlanks(withoutComment(line)).empty()) return std::nullopt;
  SessionReply reply;
  auto failure = failureOf([&] {
    HostLog log;
    reply.failure = failureOf([&] {
      const ArrayScope scope;
      reply.result = run(line, {}, reply.details);
    });
    reply.log = log.take();
  });
  if (failure && !reply.failure) reply.failure = std::move(failure);
  if (reply.failure) reply.result = {};
  return reply;
}

}  // namespace vgdt
