// In a unit of its own: g++ 12 warns of a mismatch where it inlines only one of the two.

#include "ArrayHeader.h"

#include <messages/exceptions.h>
#include <ut/faults.h>

#include <cstdlib>

namespace vghost {

void* ArrayStorage::operator new(std::size_t size) {
  void* block = faults::countAllocation() ? nullptr : std::malloc(size);
  if (!block) throw Lindgrove::System::OutOfMemoryException_DEPRECATED();
  return block;
}

void ArrayStorage::operator delete(void* block) noexcept {
  std::free(block);
}

}  // namespace vghost
