#include "commands/Commands.h"
#include "requests/Eval.h"

#include <fmt/format.h>

#include <fstream>
#include <iostream>

namespace vgdt {
namespace {

ExitStatus evaluateStream(const Console& console, std::istream& input, const std::string& name,
                          bool asTable) {
  const ExitStatus status =
      asTable ? tabulateLines(input, console.output) : evaluateLines(input, console.output);
  // Reading stops where the output cannot be written; main() reports that.
  if (console.output && !input.eof())
    reportProblem(console, fmt::format("{} cannot be read", name));
  return status;
}

}  // namespace

ExitStatus evaluate(const Console& console, const std::optional<std::string>& file, bool asTable) {
  if (!file || *file == "-") return evaluateStream(console, std::cin, "standard input", asTable);
  std::ifstream input(*file, std::ios::binary);
  return evaluateStream(console, input, *file, asTable);
}

}  // namespace vgdt
