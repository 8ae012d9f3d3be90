#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// The name that was probably meant: up to two letters away, whatever the case, and fewer than half
/// of the text's letters.
std::optional<std::string> nearestName(std::string_view text,
                                       const std::vector<std::string>& names);

}  // namespace vgdt
