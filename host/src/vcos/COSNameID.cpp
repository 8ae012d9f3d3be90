#include <vcos/COSNameID.h>

#include <cstdint>
#include <cstring>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_set>

namespace vcos {
namespace {

struct TextHash {
  using is_transparent = void;
  /// Dotted names differ only at their end, so the last 16 bytes have to do: hashing whole names
  /// was a seventh of the work of start-up.
  std::size_t operator()(std::string_view text) const noexcept {
    std::uint64_t end = 0;
    std::uint64_t beforeEnd = 0;
    const std::size_t length = text.size();
    if (length >= 16) std::memcpy(&beforeEnd, text.data() + length - 16, 8);
    if (length >= 8)
      std::memcpy(&end, text.data() + length - 8, 8);
    else
      std::memcpy(&end, text.data(), length);
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio
    const std::uint64_t mixed = ((end ^ length) * kOdd) ^ beforeEnd;
    return mixed * kOdd >> 32U;
  }
};

/// Names are never forgotten: they stand one after another in large blocks.
using Names = std::pmr::unordered_set<std::pmr::string, TextHash, std::equal_to<>>;

/// The set's nodes never move, so a name is the address of its text.
Names& internedNames() {
  struct Interned {
    std::pmr::monotonic_buffer_resource memory{16384};
    Names names{{""}, 256, &memory};
  };
  static Interned& interned = *new Interned;
  return interned.names;
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
