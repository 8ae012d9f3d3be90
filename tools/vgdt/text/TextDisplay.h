#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace vgdt {

/// How much of a user's text an error message repeats.
inline constexpr std::size_t kMaxQuoted = 40;

/// Valid UTF-8 for an error message, cut to kMaxQuoted columns ("..." shows the cut). Control
/// characters stay: whoever shows the message to a person makes escapes of them.
std::string shortened(std::string_view text);

/// The columns that a text takes on a terminal, control characters as onOneLine() shows them.
std::size_t displayWidth(std::string_view text);

/// For a terminal: valid UTF-8 with escapes ("\x1b", "\n", "\u202e") for control characters and for
/// those that turn the direction of text, cut to `width` columns.
std::string onOneLine(std::string_view text,
                      std::size_t width = std::numeric_limits<std::size_t>::max());

/// With blanks at the end, `width` columns wide or more.
std::string padded(std::string text, std::size_t width);

/// The place in characters, counted from 1, of a byte position in a UTF-8 text.
std::size_t columnOf(std::string_view text, std::size_t position);

/// Two lines: the line of `text` that `position` is on, shown as onOneLine() does, or as much of it
/// around the place as a terminal is wide, and a caret under the place.
std::string caretDisplay(std::string_view text, std::size_t position);

/// ASCII letters in lower case.
std::string lowerCase(std::string_view text);

/// Without ASCII white space at either end.
std::string_view trimmed(std::string_view text);

}  // namespace vgdt
