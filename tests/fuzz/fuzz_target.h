#pragma once

#include <cstddef>
#include <cstdint>

/// Takes one input; a crash, a leak or an abort is a finding. The name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Bytes of elements that one input may ask for, so that none exhausts the machine.
inline constexpr std::size_t kMemoryLimit = 64U << 20U;
