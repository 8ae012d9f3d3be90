#include "commands/Commands.h"
#include "session/InterruptGuard.h"
#include "session/LineEditor.h"
#include "session/SessionLines.h"

#include <unistd.h>
#include <ut/interrupts.h>

#include <fstream>
#include <iostream>

namespace vgdt {
namespace {

ExitStatus editSession(const Console& console, bool asJson) {
  SessionLines lines(console, asJson, true);
  LineEditor editor(
      [&lines](std::string_view line) { return completionOf(lines.session(), line); });
  if (!asJson)
    console.output << "\"help\" lists the commands, \"quit\" ends the session.\n" << std::flush;
  while (!lines.isAtEnd()) {
    const auto line = editor.next();
    if (!line) break;
    const InterruptGuard interruptsCallbacks([](int) { vghost::requestInterrupt(); });
    lines.serve(*line);
  }
  return lines.status();
}

}  // namespace

ExitStatus runSession(const Console& console, const std::optional<std::string>& file, bool asJson) {
  if (file && *file != "-") {
    std::ifstream input(*file, std::ios::binary);
    return serveSession(console, input, *file, asJson);
  }
  const bool isTerminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  return isTerminal ? editSession(console, asJson)
                    : serveSession(console, std::cin, "standard input", asJson);
}

}  // namespace vgdt
