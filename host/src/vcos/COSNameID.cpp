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
auto& internedNames() {
  static auto& names = *new std::unordered_set<std::string, TextHash, std::equal_to<>>{""};
  return names;
}

const char* intern(std::string_view text) {
  auto& names = internedNames();
  auto found = names.find(text);
  if (found == names.end()) found = names.emplace(text).first;
  return found->c_str();
}

}  // namespace

COSNameID::COSNameID() : COSNameID("") {}

COSNameID::COSNameID(const char* name) : text_(intern(name)) {}

std::optional<COSNameID> COSNameID::find(std::string_view name) {
  const auto& names = internedNames();
  const auto found = names.find(name);
  if (found == names.end()) return std::nullopt;
  return COSNameID(Interned(), found->c_str());
}

}  // namespace vcos
