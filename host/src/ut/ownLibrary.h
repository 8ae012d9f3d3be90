#pragma once

#include <string>

namespace vghost {

/// The file that the host was loaded from, with its folder. Empty if that cannot be found out.
const std::string& ownLibrary();
/// The folder of that file, with a "/" at its end; what the host reads stands beside it.
std::string ownDirectory();

}  // namespace vghost
