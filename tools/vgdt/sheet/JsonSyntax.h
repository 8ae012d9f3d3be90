#pragma once

#include "Errors.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vgdt {

/// A text that is no JSON, or nested deeper than kMaxJsonDepth: what is wrong, and where.
class JsonError : public RequestError {
 public:
  JsonError(std::size_t position, const std::string& problem)
      : RequestError(problem),
        position_(position) {}

  /// Number of bytes before the place.
  std::size_t position() const noexcept { return position_; }

 private:
  std::size_t position_;
};

/// Throws JsonError unless the text is one JSON value in UTF-8, with white space around it and
/// possibly a byte order mark in front. Takes time in proportion to the length, and no memory.
void requireJson(std::string_view text);

}  // namespace vgdt
