#pragma once

#include "requests/JsonValue.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vgdt {

// Members of a request. Errors: a RequestError that says what is missing or what would be right.

/// A member that has to be there.
const std::string& stringMember(const JsonValue& request, const char* name);

/// NaN and infinities are the strings "NaN", "Inf" and "-Inf". None if the member is missing.
std::optional<double> numberMember(const JsonValue& request, const char* name);

/// A list of that many numbers. Where `count` is 1, the number may stand without a list. `words`
/// tells a user what the numbers are. None if the member is missing.
std::optional<std::vector<double>> numbersMember(const JsonValue& request, const char* name,
                                                 std::size_t count, const char* words);

/// A number as numberMember() reads it.
JsonValue jsonNumber(double number);

/// The names of the rows of a table, for an error text.
template <class Rows>
std::string namesOf(const Rows& rows) {
  std::vector<const char*> names;
  for (const auto& row : rows)
    names.push_back(row.name);
  return fmt::format("{}", fmt::join(names, ", "));
}

}  // namespace vgdt
