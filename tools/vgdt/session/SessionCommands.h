#pragma once

#include "session/Session.h"
#include "session/Usage.h"

#include <span>
#include <string_view>

namespace vgdt {

/// A command on its way.
struct Call {
  Session& session;
  std::string_view line;  ///< what the arguments are parts of
  const Arguments& arguments;
  RunningCallback* callback;  ///< whose code it is a part of; null for a line of the session
  ErrorDetails& details;      ///< for what is told of an error
};

struct SessionCommand {
  std::string_view name;
  Usage usage;
  const char* help;
  SessionResult (*run)(Call& call);
  bool logsResult = false;  ///< in a callback
};

/// In the order in which "help" lists them.
std::span<const SessionCommand> sessionCommands();

/// The one that a line means, whatever else is wrong with it; null if it begins with no command.
const SessionCommand* findCommand(std::string_view line);

}  // namespace vgdt
