#pragma once

#include <cstddef>
#include <string_view>

namespace vgdt {

/// What separates the words of a command.
inline constexpr std::string_view kBlanks = " \t\r\v\f";

std::string_view withoutBlanks(std::string_view text);

/// Up to the first # that stands in no quotes.
std::string_view withoutComment(std::string_view line);

/// How much of a text comes before the first of `separators` that stands in no quotes, brackets or
/// comment.
std::size_t endOfPiece(std::string_view text, std::string_view separators);

/// The number in arg1, arg2, ...; 0 for other words.
std::size_t argumentNumber(std::string_view word);
/// Whether a word means something in the code of a callback: source, event, arg1, arg2, ...
bool isReserved(std::string_view word);

/// Whether a text is one word without blanks, quotes, brackets, commas and #.
bool isBareWord(std::string_view text);

}  // namespace vgdt
