#pragma once

#include "requests/Requests.h"

#include <istream>
#include <ostream>

namespace vgdt {

/// Serves every line that is not blank, one line of JSON for each, and flushes after each. The
/// status is that of the worst reply; kNotUnderstood also if the input cannot be read.
ExitStatus evaluateLines(std::istream& input, std::ostream& output);

/// The same, with a table for people in place of the replies, one row a request.
ExitStatus tabulateLines(std::istream& input, std::ostream& output);

}  // namespace vgdt
