#pragma once

#include <gui_objects/Color.h>

#include <string>
#include <string_view>

namespace vgdt {

/// What a terminal can show: no colour, the usual 256, or any.
enum class ColorDepth { None, Palette, True };

/// Colour is for terminals, unless NO_COLOR is set to something or TERM is "dumb"; any colour for
/// those whose COLORTERM is "truecolor" or "24bit". Unset variables are null.
ColorDepth colorDepth(bool isTerminal, const char* noColor, const char* term,
                      const char* colorTerm);

/// The same for an open file descriptor and the environment of the process.
ColorDepth colorDepth(int fileDescriptor);

/// Marks texts for a terminal, or leaves them as they are.
class Style {
 public:
  explicit Style(ColorDepth depth) : depth_(depth) {}

  bool isColored() const { return depth_ != ColorDepth::None; }
  std::string error(std::string_view text) const { return marked(text, "1;31"); }
  std::string heading(std::string_view text) const { return marked(text, "1"); }
  /// The text on a colour, or on the nearest of the 256 that the terminal has.
  std::string onColor(std::string_view text, const gui_objects::Color4b& color) const;

 private:
  std::string marked(std::string_view text, std::string_view code) const;

  ColorDepth depth_;
};

}  // namespace vgdt
