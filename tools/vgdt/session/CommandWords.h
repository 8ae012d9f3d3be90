#pragma once

#include <string_view>

namespace vgdt {

/// What separates the words of a command.
inline constexpr std::string_view kBlanks = " \t\r\v\f";

std::string_view withoutBlanks(std::string_view text);

/// Up to the first # that stands in no quotes.
std::string_view withoutComment(std::string_view line);

/// Whether a text is one word without blanks, quotes, brackets, commas and #.
bool isBareWord(std::string_view text);

}  // namespace vgdt
