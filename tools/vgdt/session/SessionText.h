#pragma once

#include "commands/Console.h"
#include "session/SessionReply.h"

#include <string>
#include <string_view>

namespace vgdt {

/// What a person is shown of a result: lines.
std::string textOf(const SessionResult& result);

/// Shows a person what a line has come to: the log and the result on the output, an error on the
/// other stream, introduced by `place` (such as "line 3: ").
void printSessionReply(const Console& console, std::string_view place, std::string_view line,
                       const SessionReply& reply);

}  // namespace vgdt
