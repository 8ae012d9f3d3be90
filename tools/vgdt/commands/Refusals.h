#pragma once

#include "commands/Console.h"
#include "text/Explanation.h"

#include <string>
#include <string_view>

namespace vgdt {

/// Tells a person that a type has refused a value, why, and what it takes.
void explainRefusal(const Console& console, const Refusal& refusal);
/// The same for a type that a person knows as `name`.
void explainRefusal(const Console& console, std::string_view name, const Refusal& refusal);
/// The same without the line that begins it: the fields.
void printRefusal(std::ostream& stream, const Refusal& refusal);

/// Tells a person what is wrong with a request, and shows the place in a literal that does not
/// parse.
void reportRequestError(const Console& console, const std::string& literal,
                        const RequestError& error);

}  // namespace vgdt
