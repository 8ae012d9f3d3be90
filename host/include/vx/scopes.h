#pragma once

/// Scopes of temporary arrays and memory. Contexts nest, and are left in the reverse order.

#include <ut/export.h>
#include <vx/array.h>

#include <cstddef>

struct vxArrayListContext;
struct vxAllocListContext;

/// From here on, new arrays stand on a list of their own.
[[nodiscard]] VGHOST_API vxArrayListContext* vxEnterNewArrayListContext();
/// Ends the context: the `keepCount` arrays at `keep` move to the context around it, and every
/// other array still on the list is destroyed if `destroyRest`, or else moves out as well.
VGHOST_API void vxExitArrayListContext(vxArrayListContext* context, vxArray* const* keep,
                                       std::size_t keepCount, bool destroyRest) noexcept;

/// Scope 0 takes the array off its list, so that it lives until vxDestroyArray; scope 1 puts it on
/// the list of the present context.
VGHOST_API void vxSetArrayScope(vxArray* array, int scope) noexcept;

/// From here on, vxMalloc and vxCalloc put their blocks on a list of their own.
[[nodiscard]] VGHOST_API vxAllocListContext* vxEnterNewAllocListContext();
/// Ends the context and frees what is still on its list.
VGHOST_API void vxRestorePreviousAllocListContext(vxAllocListContext* context) noexcept;

/// Memory that is freed with vxFree, or with the alloc-list context that it was made in. Null when
/// memory fails.
[[nodiscard]] VGHOST_API void* vxMalloc(std::size_t size) noexcept;
[[nodiscard]] VGHOST_API void* vxCalloc(std::size_t count, std::size_t size) noexcept;
VGHOST_API void vxFree(void* block) noexcept;

/// Memory that stands on no list and is freed only with vxFreeEx. Null when memory fails.
[[nodiscard]] VGHOST_API void* vxMallocEx(std::size_t size) noexcept;
VGHOST_API void vxFreeEx(void* block) noexcept;
