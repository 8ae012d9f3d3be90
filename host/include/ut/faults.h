#pragma once

#include <ut/export.h>

#include <cstdint>

/// Faults on demand. A test counts the allocations or the host calls of some work, and then repeats
/// the work with the first, the second, ... of them failing.
namespace vghost::faults {

enum class Repeat {
  Once,        ///< only the n-th fails
  FromThenOn,  ///< the n-th and every later one fails
};

/// What a failing host call throws.
enum class Failure {
  HostError,    ///< a host error with the identifier "VORTIL:host:InjectedFailure"
  ClassSystem,  ///< a vcos::COSException
};

/// Host allocations (utMalloc and its kin, array headers, element blocks) fail from the `nth` on,
/// counted from 1 and from this call.
VGHOST_API void failAllocation(std::uint64_t nth, Repeat repeat) noexcept;

/// Likewise for the host operations that make or change something, or hand it on.
VGHOST_API void failHostCall(std::uint64_t nth, Repeat repeat,
                             Failure failure = Failure::HostError) noexcept;

/// Nothing fails any more. The counters go on.
VGHOST_API void disarm() noexcept;

/// Allocations and host calls since the program began.
VGHOST_API std::uint64_t allocationCount() noexcept;
VGHOST_API std::uint64_t hostCallCount() noexcept;

/// For the host's own operations: counts one allocation and says whether it has to fail.
bool countAllocation() noexcept;

/// For the host's own operations: counts one call of `operation` and throws if it has to fail.
void countHostCall(const char* operation);

}  // namespace vghost::faults
