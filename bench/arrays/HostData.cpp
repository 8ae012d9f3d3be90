#include "HostData.h"

#include "../common/measuring.h"

#include <malloc.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace arrays {
namespace {

constexpr std::size_t kMostTries = 64;

struct Destroy {
  void operator()(vxArray* array) const { vxDestroyArray(array); }
};
struct Free {
  void operator()(void* block) const { std::free(block); }
};

}  // namespace

void prepareMemory() {
  // Blocks that are mapped on their own always begin 16 bytes behind a page.
  if (mallopt(M_MMAP_MAX, 0) != 1) measuring::fail("the place of arrays cannot be chosen");
}

vxArray* makeArrayAt(Place place, Shape shape, vxClassID classID) {
  // What stands elsewhere is kept until the end, as are the gaps between them. These are as large
  // as the array, so that they are not taken from somewhere else.
  std::vector<std::unique_ptr<vxArray, Destroy>> rejected;
  std::vector<std::unique_ptr<void, Free>> gaps;
  while (rejected.size() < kMostTries) {
    vxArray* const array = vxCreateNumericMatrix(shape.m, shape.n, classID, vxREAL);
    if (reinterpret_cast<std::uintptr_t>(vxGetData(array)) % 64 == static_cast<std::size_t>(place))
      return array;
    const std::size_t bytes = vxGetNumberOfElements(array) * vxGetElementSize(array);
    rejected.emplace_back(array);
    gaps.emplace_back(std::malloc(bytes + 16 * rejected.size()));
  }
  measuring::fail("no array where it is wanted");
}

}  // namespace arrays
