#pragma once

#include <ut/export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace vcos {

/// An interned name. Making one looks the text up; copying, comparing and hashing it costs no more
/// than for a pointer. Interned texts live as long as the process.
class VGHOST_API COSNameID {
 public:
  /// The name "".
  COSNameID();
  explicit COSNameID(const char* name);
  /// The name if it has been interned by now; nothing is kept of one that has not.
  static std::optional<COSNameID> find(std::string_view name);

  const char* c_str() const noexcept { return text_; }

  friend bool operator==(COSNameID, COSNameID) noexcept = default;

 private:
  struct Known {};
  COSNameID(Known, const char* text) noexcept : text_(text) {}

  const char* text_;
};

}  // namespace vcos

template <>
struct std::hash<vcos::COSNameID> {
  std::size_t operator()(vcos::COSNameID name) const noexcept {
    return std::hash<const void*>{}(name.c_str());
  }
};
