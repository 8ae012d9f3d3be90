#include "FailingNew.h"

#include <cstdlib>
#include <new>

namespace {

constexpr std::uint64_t kNever = UINT64_MAX;

constinit std::uint64_t count = 0;
constinit std::uint64_t failFrom = kNever;
constinit bool failOnce = true;

}  // namespace

namespace test {

std::uint64_t newCount() noexcept {
  return count;
}

void failNew(std::uint64_t nth, bool fromThenOn) noexcept {
  failFrom = count + nth;
  failOnce = !fromThenOn;
}

void failNoNew() noexcept {
  failFrom = kNever;
}

}  // namespace test

void* operator new(std::size_t size) {
  void* block = nullptr;
  if (++count < failFrom)
    block = std::malloc(size == 0 ? 1 : size);
  else if (failOnce)
    failFrom = kNever;
  if (!block) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
