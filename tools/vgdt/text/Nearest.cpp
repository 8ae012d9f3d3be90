#include "text/Nearest.h"

#include "text/TextDisplay.h"

#include <algorithm>
#include <numeric>

namespace vgdt {
namespace {

constexpr std::size_t kMaxDistance = 2;

/// Letters to insert, delete or replace.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

bool differTooMuchInLength(std::string_view a, std::string_view b) {
  return std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > kMaxDistance;
}

}  // namespace

std::optional<std::string> nearestName(std::string_view text,
                                       const std::vector<std::string>& names) {
  const std::string wanted = lowerCase(text);
  std::optional<std::string> nearest;
  std::size_t limit = std::min(kMaxDistance + 1, (wanted.size() + 1) / 2);
  for (const std::string& name : names) {
    if (differTooMuchInLength(wanted, name)) continue;
    const std::size_t distance = editDistance(wanted, lowerCase(name));
    if (distance >= limit) continue;
    limit = distance;
    nearest = name;
  }
  return nearest;
}

}  // namespace vgdt
