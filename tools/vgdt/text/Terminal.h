#pragma once

#include <string>
#include <string_view>

namespace vgdt {

/// Colour is for terminals, unless NO_COLOR is set to something or TERM is "dumb". Unset variables
/// are null.
bool wantsColour(bool isTerminal, const char* noColour, const char* term);

/// The same for an open file descriptor and the environment of the process.
bool wantsColour(int fileDescriptor);

/// Marks texts for a terminal, or leaves them as they are.
class Style {
 public:
  explicit Style(bool coloured) : coloured_(coloured) {}

  std::string error(std::string_view text) const { return marked(text, "1;31"); }
  std::string heading(std::string_view text) const { return marked(text, "1"); }

 private:
  std::string marked(std::string_view text, std::string_view code) const;

  bool coloured_;
};

}  // namespace vgdt
