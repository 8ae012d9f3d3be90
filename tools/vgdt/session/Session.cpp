#include "session/Session.h"

#include "Classes.h"
#include "session/CommandWords.h"
#include "session/SessionCommands.h"
#include "session/SessionText.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <messages/exceptions.h>
#include <sv/features.h>
#include <ut/interrupts.h>

#include <utility>

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

Session::Session() : callbacks_(*this) {
  svRegisterFeature("VORTILUsingSingleGraphics", 1, nullptr, nullptr);
}

SessionResult Session::run(std::string_view command, RunningCallback* callback,
                           ErrorDetails& details) {
  const std::string_view line = withoutBlanks(withoutComment(command));
  const SessionCommand& found = requireCommand(line);
  const bool hasComment = withoutComment(command).size() != command.size();
  const Arguments arguments = found.usage.match(line, hasComment);
  Call call{*this, command, arguments, callback, details};
  SessionResult result = found.run(call);
  if (callback && found.logsResult) log().add({jsonOf(result), textOf(result)});
  return result;
}

void Session::endLine() {
  if (!std::exchange(keepsInterrupt_, false)) vghost::dropInterrupt();
  vghost::setDbquit(false);
}

std::optional<SessionReply> Session::serve(std::string_view line) {
  if (withoutBlanks(withoutComment(line)).empty()) return std::nullopt;
  SessionReply reply;
  auto failure = failureOf([&] {
    HostLog log;
    log_ = &log;
    reply.failure = failureOf([&] {
      const ArrayScope scope;
      try {
        reply.result = run(line, nullptr, reply.details);
      } catch (const fl::except::IInternalException&) {
        // An interrupt or a quit has left the callbacks.
      }
    });
    endLine();
    reply.log = log.take();
  });
  if (failure && !reply.failure) reply.failure = std::move(failure);
  if (reply.failure) reply.result = {};
  return reply;
}

}  // namespace vgdt
