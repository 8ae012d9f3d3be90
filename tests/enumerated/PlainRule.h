#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace test {

/// Which name a text stands for, found by looking at all of them: the one that equals it or, if
/// none does, the only one that begins with it.
inline std::optional<std::size_t> plainMatch(const std::vector<std::string_view>& names,
                                             std::string_view text) {
  const auto begins = [text](std::string_view name) { return name.starts_with(text); };
  auto found = std::ranges::find(names, text);
  if (found == names.end()) {
    if (std::ranges::count_if(names, begins) != 1) return std::nullopt;
    found = std::ranges::find_if(names, begins);
  }
  return static_cast<std::size_t>(found - names.begin());
}

}  // namespace test
