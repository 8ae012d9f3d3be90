#pragma once

#include "Errors.h"
#include "sheet/SheetClasses.h"

#include <vx/array.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// What of a sheet is refused, and why. What does not apply is empty or null.
struct SheetRefusal {
  std::string_view file = {};
  std::size_t line = 0;
  std::string pointer = {};
  std::string objectPointer = {};  ///< of the object that it belongs to
  std::optional<std::string> object = {};
  std::optional<std::string> className = {};
  std::optional<std::string> property = {};
  SheetProperty* known = nullptr;           ///< the property of that name
  std::string_view json = {};               ///< what stands at the place
  std::optional<std::string> literal = {};  ///< as it was given
  std::optional<std::size_t> caret = {};    ///< where it does not parse
  const vxArray* array = nullptr;           ///< what was given, as far as it is an array
  bool isOfType = false;                    ///< whether it matters what the property's type takes
  Failure failure = {};
  std::vector<std::string> said = {};  ///< what the library has printed and warned of
};

struct SheetTotals {
  std::uint64_t objects = 0;
  std::uint64_t values = 0;
  std::uint64_t refused = 0;
};

/// Where the outcome of a check goes.
class SheetReports {
 public:
  virtual ~SheetReports() = default;
  virtual void add(const SheetRefusal& refusal) = 0;
  virtual void finish(const SheetTotals& totals) = 0;
};

}  // namespace vgdt
