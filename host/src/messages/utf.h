#pragma once

#include <cstddef>
#include <string_view>

/// Conversions between UTF-8 and UTF-16 in two steps, measuring and writing, so that the caller
/// allocates once. What is broken in the input becomes U+FFFD.
namespace vghost::utf {

std::size_t utf16Length(std::string_view utf8) noexcept;
void writeUtf16(std::string_view utf8, unsigned short* output) noexcept;

std::size_t utf8Length(const unsigned short* text, std::size_t length) noexcept;
/// Writes no NUL at the end.
void writeUtf8(const unsigned short* text, std::size_t length, char* output) noexcept;

}  // namespace vghost::utf
