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

void printRow(std::ostream& output, const Row& row, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i)
    line += padded(onOneLine(row[i]), widths[i]) + "  ";
  line.erase(line.find_last_not_of(' ') + 1);
  output << line << '\n';
}

}  // namespace

void Table::print(std::ostream& output) const {
  std::vector<std::size_t> widths(titles_.size());
  widen(widths, titles_);
  for (const Row& row : rows_)
    widen(widths, row);
  printRow(output, titles_, widths);
  for (const Row& row : rows_)
    printRow(output, row, widths);
}

}  // namespace vgdt
