#include "ownLibrary.h"

#include <dlfcn.h>

namespace vghost {

const std::string& ownLibrary() {
  static const auto& file = *new std::string([] {
    Dl_info library{};
    const bool isKnown = dladdr(reinterpret_cast<void*>(&ownDirectory), &library) != 0;
    return std::string(isKnown ? library.dli_fname : "");
  }());
  return file;
}

std::string ownDirectory() {
  const std::string& file = ownLibrary();
  return file.substr(0, file.find_last_of('/') + 1);
}

}  // namespace vghost
