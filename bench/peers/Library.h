#pragma once

#include <cstddef>

namespace peers {

/// Starts the library and says how many types its package has then.
double countLibraryTypes(std::size_t);

}  // namespace peers
