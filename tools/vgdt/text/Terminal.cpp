#include "text/Terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>

namespace vgdt {

bool wantsColour(bool isTerminal, const char* noColour, const char* term) {
  const bool isRefused = noColour && *noColour != '\0';
  const bool isDumb = term && std::string_view(term) == "dumb";
  return isTerminal && !isRefused && !isDumb;
}

bool wantsColour(int fileDescriptor) {
  return wantsColour(isatty(fileDescriptor) != 0, std::getenv("NO_COLOR"), std::getenv("TERM"));
}

std::string Style::marked(std::string_view text, std::string_view code) const {
  return coloured_ ? fmt::format("\033[{}m{}\033[0m", code, text) : std::string(text);
}

}  // namespace vgdt
