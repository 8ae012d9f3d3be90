#pragma once

#include "requests/JsonValue.h"

#include <string>
#include <vector>

namespace vgdt {

/// A coordinate or length in another unit.
struct UnitsAnswer {
  std::vector<double> result;
  std::string unit;  ///< its full name
};

/// Answers a request of op "units".
///
/// Errors: RequestError if a member is missing or of the wrong form, otherwise those of the type
/// Units for a name and those of the host's geometry for a negative size or margin.
UnitsAnswer convertUnits(const JsonValue& request);

/// "[96 96 192 192] pixels", and without brackets for a single number.
std::string textOf(const UnitsAnswer& answer);

}  // namespace vgdt
