#include "../ut/ownLibrary.h"

#include <messages/catalog.h>
#include <messages/translation.h>
#include <unicode/msgfmt.h>
#include <unicode/resbund.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <vector>

namespace vghost::messages {
namespace {

using resource_core::MessageDefinition;

constexpr const MessageDefinition* kCatalog[] = {
#define VGHOST_MESSAGE(Space, Name, Arity, Identifier, English) &Space::Name::kDefinition,
#include <catalog/messages.def>
#undef VGHOST_MESSAGE
};

std::string& currentLocale() {
  static auto& locale = *new std::string("en");
  return locale;
}

// ICU does not throw where memory fails: it returns a status, a string that is none, or nothing.

void requireMemory(const icu::UnicodeString& text, UErrorCode status) {
  if (text.isBogus() || status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
}

icu::UnicodeString unicode(const std::string& utf8) {
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
  requireMemory(text, U_ZERO_ERROR);
  return text;
}

std::string utf8(const icu::UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  if (bytes.empty() && !text.isEmpty()) throw std::bad_alloc();
  return bytes;
}

/// The bundles stand in vghost/messages beside the library, wherever that was loaded from.
const std::string& bundleDirectory() {
  static const auto& directory = *new std::string(ownDirectory() + "vghost/messages");
  return directory;
}

/// The translated pattern; empty if the locale's language has none. ICU would also try the
/// language of the process, which is not wanted here.
std::string translation(const char* identifier, const std::string& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::ResourceBundle bundle(bundleDirectory().c_str(), icu::Locale(locale.c_str()), status);
  if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) return {};
  status = U_ZERO_ERROR;
  const icu::UnicodeString text = bundle.getStringEx(identifier, status);
  requireMemory(text, status);
  return U_SUCCESS(status) ? utf8(text) : std::string();
}

std::string patternOr(const char* english, const char* identifier, const std::string& locale) {
  const bool isEnglish = locale.starts_with("en");
  std::string translated = isEnglish ? std::string() : translation(identifier, locale);
  return translated.empty() ? english : translated;
}

}  // namespace

std::span<const MessageDefinition* const> catalog() noexcept {
  return kCatalog;
}

void setLocale(const std::string& locale) {
  currentLocale() = locale;
}

const std::string& locale() {
  return currentLocale();
}

std::string pattern(const char* identifier, const std::string& locale) {
  const auto* const* message = std::ranges::find_if(kCatalog, [identifier](const auto* candidate) {
    return std::strcmp(candidate->identifier, identifier) == 0;
  });
  return patternOr(message == std::end(kCatalog) ? identifier : (*message)->english, identifier,
                   locale);
}

std::string text(const resource_core::BaseMsgID& message, const std::string& locale) {
  const MessageDefinition& definition = message.definition();
  const std::string chosen = patternOr(definition.english, definition.identifier, locale);
  UErrorCode status = U_ZERO_ERROR;
  const icu::MessageFormat format(unicode(chosen), icu::Locale(locale.c_str()), status);
  std::vector<icu::Formattable> arguments;
  for (const std::string& argument : message.arguments())
    arguments.emplace_back(unicode(argument));
  icu::UnicodeString text;
  icu::FieldPosition ignored;
  if (U_SUCCESS(status))
    format.format(arguments.data(), static_cast<int32_t>(arguments.size()), text, ignored, status);
  requireMemory(text, status);
  return U_SUCCESS(status) ? utf8(text) : chosen;
}

}  // namespace vghost::messages
