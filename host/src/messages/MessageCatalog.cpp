#include "../ut/ownLibrary.h"

#include <messages/MessageCatalog.h>
#include <messages/translation.h>
#include <unicode/ures.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <new>
#include <utility>

namespace fl::i18n {
namespace {

constexpr std::string_view kWordCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

const std::string& catalogDirectory() {
  static const auto& directory = *new std::string(vghost::ownDirectory() + "vghost/catalogs");
  return directory;
}

/// The folder of a catalogue; empty if the id is not made of words with "::" between them.
std::string folderOf(std::string_view id) {
  std::string folder = catalogDirectory();
  for (;;) {
    const std::size_t end = std::min(id.find_first_not_of(kWordCharacters), id.size());
    if (end == 0) return {};
    folder.append("/").append(id.substr(0, end));
    id.remove_prefix(end);
    if (id.empty()) return folder;
    if (!id.starts_with("::")) return {};
    id.remove_prefix(2);
  }
}

/// The names of a locale's bundles: "de_CH", "de", "root".
std::vector<std::string> bundleNames(std::string locale) {
  std::ranges::replace(locale, '-', '_');
  locale.resize(std::min(locale.find_first_not_of(kWordCharacters), locale.size()));
  std::vector<std::string> names;
  while (!locale.empty()) {
    names.push_back(locale);
    const std::size_t end = locale.rfind('_');
    locale.resize(end == std::string::npos ? 0 : end);
  }
  names.emplace_back("root");
  return names;
}

void requireMemory(UErrorCode status) {
  if (status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
}

}  // namespace

VwLocale::VwLocale(std::string name) : name_(std::move(name)) {}

VwLocale VwLocale::global() {
  return VwLocale(vghost::messages::locale());
}

MessageCatalog::MessageNotFound::~MessageNotFound() = default;

const char* MessageCatalog::MessageNotFound::what() const noexcept {
  return "The catalogue has no message of this key.";
}

void MessageCatalog::Close::operator()(UResourceBundle* bundle) const noexcept {
  ures_close(bundle);
}

std::unique_ptr<MessageCatalog> MessageCatalog::openCatalog(const char* id,
                                                            const VwLocale& locale) {
  static auto& mutex = *new std::mutex;
  static auto& opened = *new std::map<std::string, Bundles, std::less<>>;
  std::string name = locale.name();
  name.append("/").append(id ? id : "");
  const std::lock_guard lock(mutex);
  auto found = opened.find(name);
  if (found == opened.end())
    found = opened.emplace(std::move(name), openBundles(id ? id : "", locale)).first;
  return std::unique_ptr<MessageCatalog>(new MessageCatalog(found->second));
}

MessageCatalog::Bundles MessageCatalog::openBundles(const char* id, const VwLocale& locale) {
  Bundles bundles;
  const std::string folder = folderOf(id);
  if (folder.empty()) return bundles;
  // One by one: ICU's own way from a language to the root leads over the language of the process,
  // and takes ten times as long.
  for (const std::string& name : bundleNames(locale.name())) {
    UErrorCode status = U_ZERO_ERROR;
    Bundle bundle(ures_openDirect(folder.c_str(), name.c_str(), &status));
    requireMemory(status);
    if (U_SUCCESS(status)) bundles.push_back(std::move(bundle));
  }
  return bundles;
}

ustring MessageCatalog::lookup(const char* key) const {
  if (!key) throw MessageNotFound();
  // Most keys can be stored as they are, and need no copy then.
  const bool isPlain = std::ranges::all_of(std::string_view(key), canBeStored);
  const std::string other = isPlain ? std::string() : storedKey(key);
  const char* const stored = isPlain ? key : other.c_str();
  for (const Bundle& bundle : bundles_) {
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar* text = ures_getStringByKey(bundle.get(), stored, &length, &status);
    requireMemory(status);
    if (U_SUCCESS(status)) return ustring(text, text + length);
  }
  throw MessageNotFound();
}

}  // namespace fl::i18n
