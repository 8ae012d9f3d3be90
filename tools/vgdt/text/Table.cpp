#include "text/Table.h"

#include "text/TextDisplay.h"

#include <algorithm>

namespace vgdt {
namespace {

using Row = std::vector<std::string>;

void widen(std::vector<std::size_t>& widths, const Row& row) {
  for (std::size_t i = 0; i < row.size(); ++i)
    widths[i] = std::max(widths[i], displayWidth(row[i]));
}

std::string lineOf(const Row& row, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i)
    line += padded(onOneLine(row[i]), widths[i]) + "  ";
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace

void Table::print(std::ostream& output) const {
  for (const std::string& line : lines())
    output << line << '\n';
}

std::vector<std::string> Table::lines() const {
  std::vector<std::size_t> widths(titles_.size());
  widen(widths, titles_);
  for (const Row& row : rows_)
    widen(widths, row);
  std::vector<std::string> lines{lineOf(titles_, widths)};
  for (const Row& row : rows_)
    lines.push_back(lineOf(row, widths));
  return lines;
}

}  // namespace vgdt
