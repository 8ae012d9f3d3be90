#pragma once

#include <ut/export.h>

#include <string>
#include <string_view>

namespace fl {

/// Text in 16-bit units (UTF-16).
using ustring = std::basic_string<unsigned short>;

namespace i18n {

/// UTF-8 to UTF-16. What is broken in the input becomes U+FFFD.
VGHOST_API ustring to_ustring(std::string_view utf8);

/// UTF-16 to UTF-8. An unpaired surrogate becomes U+FFFD.
VGHOST_API std::string to_utf8(const unsigned short* text, std::size_t length);

}  // namespace i18n
}  // namespace fl
