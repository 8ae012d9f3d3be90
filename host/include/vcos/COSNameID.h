#pragma once

#include <ut/export.h>

#include <compare>
#include <cstddef>
#include <functional>

namespace vcos {

/// An interned name. Making one looks the text up; copying, comparing and hashing it costs no more
/// than for a pointer. Interned texts live as long as the process.
class VGHOST_API COSNameID {
 public:
  /// The name "".
  COSNameID() noexcept;
  explicit COSNameID(const char* name);

  const char* c_str() const noexcept { return text_; }

  friend bool operator==(COSNameID, COSNameID) noexcept = default;

 private:
  const char* text_;
};

}  // namespace vcos

template <>
struct std::hash<vcos::COSNameID> {
  std::size_t operator()(vcos::COSNameID name) const noexcept {
    return std::hash<const void*>{}(name.c_str());
  }
};
