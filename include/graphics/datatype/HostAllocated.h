#pragma once

#include <ut/memory.h>
#include <vcos/exceptions.h>

#include <cstddef>

namespace graphics::datatype {

/// Base of the classes whose objects live in the host's memory, so that either side of the library
/// boundary can end them. A failed allocation is a vcos::COSOutOfMemoryException.
struct HostAllocated {
  static void* operator new(std::size_t size) {
    void* storage = utCalloc(size, 1);
    if (!storage) throw vcos::COSOutOfMemoryException();
    return storage;
  }
  static void operator delete(void* storage) noexcept { utFree(storage); }
};

}  // namespace graphics::datatype
