#include "FailingNew.h"

#include <cstdlib>
#include <new>

namespace {

constexpr std::uint64_t kNever = UINT64_MAX;

constinit std::uint64_t count = 0;
constinit std::uint64_t firstToFail = kNever;
constinit std::uint64_t lastToFail = kNever;

}  // namespace

namespace test {

std::uint64_t newCount() noexcept {
  return count;
}

void failNew(std::uint64_t nth, bool fromThenOn) noexcept {
  firstToFail = count + nth;
  lastToFail = fromThenOn ? kNever : firstToFail;
}

void failNoNew() noexcept {
  firstToFail = kNever;
}

}  // namespace test

void* operator new(std::size_t size) {
  ++count;
  if (firstToFail <= count && count <= lastToFail) throw std::bad_alloc();
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
