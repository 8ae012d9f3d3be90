#pragma once

#include <ut/export.h>

/// `length` bytes of UTF-8, or all up to the NUL if it is -1, in 16-bit units with a NUL behind
/// them, to be freed with utFree. What is broken in them becomes U+FFFD. Null for a null text and
/// when memory fails.
[[nodiscard]] VGHOST_API unsigned short* utf8_to_utf16(const char* text, int length) noexcept;

namespace vghost {

/// What a terminal obeys or what turns the direction of text: shown as it is, it would hide
/// something of the text around it.
VGHOST_API bool isControl(char32_t character) noexcept;

}  // namespace vghost
