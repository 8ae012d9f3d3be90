#pragma once

#include <ut/export.h>

#include <string_view>

namespace vghost {

/// A decimal that std::from_chars finds out of range, which does not say whether it is too large or
/// too close to zero: an infinity, or the nearest double. The locale plays no part.
VGHOST_API double hugeOrTiny(std::string_view decimal);

}  // namespace vghost
