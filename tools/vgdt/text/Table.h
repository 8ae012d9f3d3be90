#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace vgdt {

/// Columns that are as wide as their widest cell; cells are shown as onOneLine() shows them.
class Table {
 public:
  explicit Table(std::vector<std::string> titles) : titles_(std::move(titles)) {}

  /// A row has as many cells as there are titles.
  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  void print(std::ostream& output) const;
  /// The titles, and the rows.
  std::vector<std::string> lines() const;

 private:
  std::vector<std::string> titles_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace vgdt
