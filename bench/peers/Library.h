#pragma once

#include <vcos/COSDataType.h>

#include <cstddef>

namespace peers {

/// A type of the library, which is started if it is not; by the type's dotted name.
const vcos::COSDataType& libraryType(const char* name);

/// Starts the library and says how many types its package has then.
double countLibraryTypes(std::size_t);

}  // namespace peers
