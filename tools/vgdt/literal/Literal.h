#pragma once

#include "Errors.h"

#include <vcos/TypeAccess.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace vgdt {

/// A literal that does not parse: what would have been right, and where.
class LiteralError : public RequestError {
 public:
  LiteralError(std::size_t position, const std::string& problem)
      : RequestError(problem),
        position_(position) {}

  /// Number of bytes before the place.
  std::size_t position() const noexcept { return position_; }

 private:
  std::size_t position_;
};

/// How many brackets, braces and calls may stand inside each other.
inline constexpr std::size_t kMaxLiteralDepth = 64;

/// The array that a word stands for; null if the word is not known.
using WordResolver = std::function<vcos::ArrayOwner(std::string_view word)>;

/// What a word that a WordResolver may know is made of: anything else ends it.
inline constexpr std::string_view kWordEnds = " \t\r\n\v\f'\"[]{}(),;#";

/// The host array that a literal describes. A word that `words` knows may stand for a value, and in
/// square brackets for an object.
///
/// Throws LiteralError, also if a word brings in what nests too deeply in the value; raises what
/// the host raises when an array cannot be made
/// ("VORTIL:array:SizeLimitExceeded").
vcos::ArrayOwner parseLiteral(std::string_view literal, const WordResolver& words = {});

}  // namespace vgdt
