#pragma once

#include <ut/export.h>

#include <cstddef>

/// The host's general heap. Blocks of these calls are freed with utFree, on whichever side of the
/// library boundary they were made.

/// `size` bytes, or null when memory fails. The content is undefined.
[[nodiscard]] VGHOST_API void* utMalloc(std::size_t size) noexcept;

/// `count * size` zeroed bytes, or null when memory fails or the product overflows.
[[nodiscard]] VGHOST_API void* utCalloc(std::size_t count, std::size_t size) noexcept;

/// A copy of `text` up to and with its NUL; null when memory fails or `text` is null.
[[nodiscard]] VGHOST_API char* utStrdup(const char* text) noexcept;

/// Frees a block of one of the calls above. Null does nothing.
VGHOST_API void utFree(void* block) noexcept;

namespace vghost {

/// How many blocks of the host's heap are in use now.
VGHOST_API std::size_t liveBlocks() noexcept;

}  // namespace vghost
