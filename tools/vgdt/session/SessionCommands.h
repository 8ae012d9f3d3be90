#pragma once

#include "literal/Literal.h"
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
  const WordResolver& words;  ///< what the session itself does not know
  ErrorDetails& details;      ///< for what is told of an error
};

struct SessionCommand {
  std::string_view name;
  Usage usage;
  const char* help;
  SessionResult (*run)(Call& call);
};

/// In the order in which "help" lists them.
std::span<const SessionCommand> sessionCommands();

/// The one that a line means, whatever else is wrong with it; null if it begins with no command.
const SessionCommand* findCommand(std::string_view line);

}  // namespace vgdt
