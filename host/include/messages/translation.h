#pragma once

#include <messages/BaseMsgID.h>
#include <ut/export.h>

#include <span>
#include <string>

/// How messages become text. The language is always an explicit locale and never that of the
/// process. A missing translation falls back to English, a missing message to its identifier.
namespace vghost::messages {

/// Every message of the catalogue, in the order of its rows.
VGHOST_API std::span<const resource_core::MessageDefinition* const> catalog() noexcept;

/// The locale in which errors and warnings are raised from now on, such as "de" or "de_CH".
VGHOST_API void setLocale(const std::string& locale);
VGHOST_API const std::string& locale();

/// The pattern of an identifier in a locale; the identifier itself if the catalogue lacks it.
VGHOST_API std::string pattern(const char* identifier, const std::string& locale);

/// The text of a message with its arguments put in, in UTF-8.
VGHOST_API std::string text(const resource_core::BaseMsgID& message, const std::string& locale);

}  // namespace vghost::messages
