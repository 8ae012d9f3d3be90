#pragma once

#include "requests/JsonWriter.h"
#include "sheet/SheetRefusal.h"

namespace vgdt {

/// One line of JSON for each refusal, and one for the totals.
class JsonReports final : public SheetReports {
 public:
  explicit JsonReports(std::ostream& output) : writer_(output) {}

  void add(const SheetRefusal& refusal) override;
  void finish(const SheetTotals& totals) override;

 private:
  void addText(std::string_view name, std::string_view text);
  void addText(std::string_view name, const std::optional<std::string>& text);
  template <class Number>
  void addNumber(std::string_view name, Number number);

  JsonWriter writer_;
};

}  // namespace vgdt
