#pragma once

#include <cstdint>

/// Linking FailingNew.cpp replaces the global operator new of the program and of every library in
/// it by one that counts, and that can be told to fail.
namespace test {

/// Allocations through operator new since the program began.
std::uint64_t newCount() noexcept;

/// The `nth` allocation from here throws std::bad_alloc, once, or also all later ones.
void failNew(std::uint64_t nth, bool fromThenOn = false) noexcept;
void failNoNew() noexcept;

}  // namespace test
