#pragma once

#include <messages/ustring.h>
#include <ut/export.h>

#include <array>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct UResourceBundle;

namespace fl::i18n {

/// A language and, if wanted, a country, such as "de" or "de_CH".
class VGHOST_API VwLocale {
 public:
  explicit VwLocale(std::string name);
  /// The one in which errors and warnings are raised, see vghost::messages::locale().
  static VwLocale global();
  const std::string& name() const noexcept { return name_; }

 private:
  std::string name_;
};

/// The texts of one library by their keys. What a language lacks is taken from the root bundle,
/// never from the language of the process.
///
/// The bundles of the catalogue "A::B" are vghost/catalogs/A/B/<language>.res beside this library.
class VGHOST_API MessageCatalog {
 public:
  class VGHOST_API MessageNotFound : public std::exception {
   public:
    ~MessageNotFound() override;
    const char* what() const noexcept override;
  };

  /// A catalogue that is not there, or whose id is malformed, is one without messages. What was
  /// opened once stays open until the process ends.
  static std::unique_ptr<MessageCatalog> openCatalog(const char* id, const VwLocale& locale);
  MessageCatalog(const MessageCatalog&) = delete;
  MessageCatalog& operator=(const MessageCatalog&) = delete;

  /// Throws MessageNotFound.
  ustring lookup(const char* key) const;

  /// The key under which a bundle holds the text of `key`. ICU has keys of some ASCII characters
  /// only, so the others are written as in "%5E".
  static std::string storedKey(std::string_view key);

 private:
  struct Close {
    void operator()(UResourceBundle* bundle) const noexcept;
  };
  using Bundle = std::unique_ptr<UResourceBundle, Close>;

  /// That of the country first, the root last.
  using Bundles = std::vector<Bundle>;

  explicit MessageCatalog(const Bundles& bundles) noexcept : bundles_(bundles) {}
  static Bundles openBundles(const char* id, const VwLocale& locale);
  static bool canBeStored(char c) noexcept;

  const Bundles& bundles_;
};

inline bool MessageCatalog::canBeStored(char c) noexcept {
  static constexpr auto kTable = [] {
    std::array<bool, 256> table{};
    for (const char storable : std::string_view("abcdefghijklmnopqrstuvwxyz"
                                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+*.:<>"))
      table[static_cast<unsigned char>(storable)] = true;
    return table;
  }();
  return kTable[static_cast<unsigned char>(c)];
}

// Inline, so that a program that writes bundles needs no library.
inline std::string MessageCatalog::storedKey(std::string_view key) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string stored;
  stored.reserve(key.size() + 2);
  for (const char c : key)
    if (canBeStored(c))
      stored += c;
    else
      stored.append({'%', kDigits[(c >> 4) & 15], kDigits[c & 15]});
  return stored;
}

}  // namespace fl::i18n
