#include "PermanentMemory.h"

#include <vcos/COSNameID.h>

#include <boost/unordered_set.hpp>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vcos {
namespace {

struct TextHash {
  /// Dotted names differ only at their end, so the last 16 bytes have to do: hashing whole names
  /// was a seventh of the work of start-up.
  std::size_t operator()(std::string_view text) const {
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

/// Its places are a power of two, which takes no division to find one.
using Names = boost::unordered_set<std::string_view, TextHash, std::equal_to<>,
                                   PermanentAllocator<std::string_view>>;

Names& internedNames() {
  static Names& names = *new Names(256);
  return names;
}

/// A name is the address of the one copy of its text.
const char* intern(std::string_view text) {
  Names& names = internedNames();
  if (const auto found = names.find(text); found != names.end()) return found->data();
  auto* copy = static_cast<char*>(PermanentMemory::allocate(text.size() + 1));
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  names.emplace(copy, text.size());
  return copy;
}

}  // namespace

COSNameID::COSNameID() : COSNameID("") {}

COSNameID::COSNameID(const char* name) : text_(intern(name)) {}

std::optional<COSNameID> COSNameID::find(std::string_view name) {
  const auto& names = internedNames();
  const auto found = names.find(name);
  if (found == names.end()) return std::nullopt;
  return COSNameID(Known(), found->data());
}

}  // namespace vcos
