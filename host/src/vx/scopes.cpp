#include "ArrayHeader.h"

#include <ut/faults.h>
#include <ut/memory.h>
#include <vx/protected_array.h>
#include <vx/scopes.h>

#include <boost/intrusive/list.hpp>
#include <cstddef>
#include <cstring>
#include <new>

namespace intrusive = boost::intrusive;

namespace {

template <class Member>
using UncountedList = intrusive::list<Member, intrusive::constant_time_size<false>>;

/// Stands in front of the bytes of vxMalloc. A block made outside every context is on no list.
struct alignas(std::max_align_t) AllocHeader
    : intrusive::list_base_hook<intrusive::link_mode<intrusive::auto_unlink>> {};

void freeBlock(AllocHeader* header) noexcept {
  header->~AllocHeader();
  utFree(header);
}

}  // namespace

struct vxArrayListContext {
  vxArrayListContext* outer;
  UncountedList<vxArray> arrays;
};

struct vxAllocListContext {
  vxAllocListContext* outer;
  UncountedList<AllocHeader> blocks;
};

namespace {

// Each thread has contexts of its own.
constinit thread_local vxArrayListContext* arrayContext = nullptr;
constinit thread_local vxAllocListContext* allocContext = nullptr;

void* allocate(std::size_t size) noexcept {
  if (size > PTRDIFF_MAX) return nullptr;
  void* memory = utMalloc(sizeof(AllocHeader) + size);
  if (!memory) return nullptr;
  auto* header = new (memory) AllocHeader;
  if (allocContext) allocContext->blocks.push_back(*header);
  return header + 1;
}

}  // namespace

void vghost::enlist(vxArray* array) noexcept {
  if (arrayContext) arrayContext->arrays.push_back(*array);
}

vxArrayListContext* vxEnterNewArrayListContext() {
  vghost::faults::countHostCall("vxEnterNewArrayListContext");
  return arrayContext = new vxArrayListContext{arrayContext, {}};
}

void vxExitArrayListContext(vxArrayListContext* context, vxArray* const* keep,
                            std::size_t keepCount, bool destroyRest) noexcept {
  for (std::size_t i = 0; i < keepCount; ++i)
    vxSetArrayScope(keep[i], 0);
  // Contexts that an error has jumped over end with the one around them.
  while (arrayContext != context)
    vxExitArrayListContext(arrayContext, nullptr, 0, destroyRest);
  arrayContext = context->outer;
  for (std::size_t i = 0; i < keepCount; ++i)
    vxSetArrayScope(keep[i], 1);
  while (!context->arrays.empty()) {
    vxArray* array = &context->arrays.front();
    if (destroyRest)
      vxDestroyArray(array);
    else
      vxSetArrayScope(array, 1);
  }
  delete context;
}

void vxSetArrayScope(vxArray* array, int scope) noexcept {
  array->unlink();
  if (scope != 0) vghost::enlist(array);
}

vxAllocListContext* vxEnterNewAllocListContext() {
  vghost::faults::countHostCall("vxEnterNewAllocListContext");
  return allocContext = new vxAllocListContext{allocContext, {}};
}

void vxRestorePreviousAllocListContext(vxAllocListContext* context) noexcept {
  while (allocContext != context)
    vxRestorePreviousAllocListContext(allocContext);
  allocContext = context->outer;
  while (!context->blocks.empty())
    freeBlock(&context->blocks.front());
  delete context;
}

void* vxMalloc(std::size_t size) noexcept {
  return allocate(size);
}

void* vxCalloc(std::size_t count, std::size_t size) noexcept {
  std::size_t bytes = 0;
  void* block = __builtin_mul_overflow(count, size, &bytes) ? nullptr : allocate(bytes);
  if (block) std::memset(block, 0, bytes);
  return block;
}

void vxFree(void* block) noexcept {
  if (block) freeBlock(static_cast<AllocHeader*>(block) - 1);
}

void* vxMallocEx(std::size_t size) noexcept {
  return utMalloc(size);
}
void vxFreeEx(void* block) noexcept {
  utFree(block);
}

void Vprotected_vxArray::myLocalize() noexcept {
  if (array_) vxSetArrayScope(array_, 0);
}

vxArray* Vprotected_vxArray_helper::copy(const vxArray* array) {
  return array ? vxCreateSharedCopyNotOnArrayList(array) : nullptr;
}
