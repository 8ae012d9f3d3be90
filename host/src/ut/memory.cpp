#include "SharedCount.h"

#include <ut/faults.h>
#include <ut/memory.h>

#include <cstdlib>
#include <cstring>

namespace {

constinit vghost::Tally live;

void* counted(void* block) noexcept {
  if (block) live.add(1);
  return block;
}

}  // namespace

void* utMalloc(std::size_t size) noexcept {
  if (vghost::faults::countAllocation()) return nullptr;
  return counted(std::malloc(size == 0 ? 1 : size));
}

void* utCalloc(std::size_t count, std::size_t size) noexcept {
  if (count == 0 || size == 0) count = size = 1;
  // The C library keeps freed small blocks for the next malloc, and its calloc does not look there.
  constexpr std::size_t kSmall = 1024;
  if (count <= kSmall && size <= kSmall && count * size <= kSmall) {
    void* const block = utMalloc(count * size);
    if (block) std::memset(block, 0, count * size);
    return block;
  }
  if (vghost::faults::countAllocation()) return nullptr;
  return counted(std::calloc(count, size));
}

char* utStrdup(const char* text) noexcept {
  if (!text) return nullptr;
  const std::size_t size = std::strlen(text) + 1;
  auto* copy = static_cast<char*>(utMalloc(size));
  if (copy) std::memcpy(copy, text, size);
  return copy;
}

void utFree(void* block) noexcept {
  if (!block) return;
  live.subtract(1);
  std::free(block);
}

namespace vghost {

std::size_t liveBlocks() noexcept {
  return live.get();
}

}  // namespace vghost
