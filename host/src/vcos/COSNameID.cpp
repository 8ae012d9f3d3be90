#include <vcos/COSNameID.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace vcos {
namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept {
    return std::hash<std::string_view>{}(text);
  }
};

/// The set's nodes never move, so a name is the address of its text.
const char* intern(std::string_view text) {
  static auto& names = *new std::unordered_set<std::string, TextHash, std::equal_to<>>;
  auto found = names.find(text);
  if (found == names.end()) found = names.emplace(text).first;
  return found->c_str();
}

}  // namespace

COSNameID::COSNameID() noexcept : text_("") {}

COSNameID::COSNameID(const char* name) : text_(*name ? intern(name) : COSNameID().c_str()) {}

}  // namespace vcos
