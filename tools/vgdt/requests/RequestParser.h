#pragma once

#include "requests/JsonValue.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vgdt {

inline constexpr std::size_t kMaxJsonDepth = 64;

struct ParsedRequest {
  /// A JSON object; Null where the line is none.
  JsonValue request;
  /// Why it cannot be served; empty if nothing is wrong.
  std::string problem;
};

/// Reads one line. Takes time in proportion to its length, and never recurses. A request with a
/// problem keeps its members, so that its "id" can be answered, but for those that are nested too
/// deep.
ParsedRequest parseRequest(std::string_view line);

}  // namespace vgdt
