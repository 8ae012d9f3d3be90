#pragma once

#include "session/Session.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// What may stand where a line ends.
struct Completion {
  std::size_t begin;               ///< of the word, in bytes, that the line ends with
  std::vector<std::string> words;  ///< all that begin with that word, sorted
};
Completion completionOf(const Session& session, std::string_view line);

/// The longest beginning that all words have; empty if there is none.
std::string_view commonBeginning(const std::vector<std::string>& words);

}  // namespace vgdt
