#pragma once

#include "sheet/Progress.h"
#include "sheet/SheetClasses.h"
#include "sheet/SheetRefusal.h"

#include <string_view>

namespace vgdt {

struct Sheet {
  std::string_view file;  ///< the name, as it was given
  std::string_view json;  ///< what requireJson() lets through, with a NUL behind it
};

/// Checks a sheet: every value goes through the array conversion of its property's type and is set
/// on an object of the class. Each refusal is reported, in the order in which they begin. `totals`
/// grow as the check goes on.
void checkSheet(const Sheet& sheet, SheetClasses& classes, SheetReports& reports,
                Progress& progress, SheetTotals& totals);

}  // namespace vgdt
