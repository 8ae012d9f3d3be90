#include "text/Nearest.h"

#include "text/TextDisplay.h"

#include <algorithm>
#include <numeric>

namespace vgdt {
namespace {

constexpr std::size_t kMaxDistance = 2;

/// Letters to insert, delete or replace, and neighbours to swap.
std::size_t editDistance(std::string_view a, std::string_view b) {
  using Row = std::vector<std::size_t>;
  Row twoAbove(b.size() + 1);
  Row above(b.size() + 1);
  Row row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    twoAbove.swap(above);
    above.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool isSame = a[i - 1] == b[j - 1];
      row[j] = std::min({above[j - 1] + (isSame ? 0 : 1), row[j - 1] + 1, above[j] + 1});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], twoAbove[j - 2] + 1);
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
  // No name that is meant for people is longer, and the work grows with the square.
  constexpr std::size_t kMaxLength = 100;
  if (text.size() > kMaxLength) return std::nullopt;
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
