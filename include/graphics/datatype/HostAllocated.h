#pragma once

#include <ut/memory.h>
#include <vcos/exceptions.h>

#include <cstddef>

namespace graphics::datatype {

/// Base of the classes whose objects live in the host's memory, so that either side of the library
/// boundary can destroy them. A failed allocation is a vcos::COSOutOfMemoryException.
///
///     struct Note : HostAllocated {};
///     auto* note = new Note;  // in storage of utCalloc
///     delete note;            // which utFree takes back
///     new (storage) Note;     // in storage that the caller has
struct HostAllocated {
  static void* operator new(std::size_t size) {
    void* storage = utCalloc(size, 1);
    if (!storage) throw vcos::COSOutOfMemoryException();
    return storage;
  }
  static void operator delete(void* storage) noexcept { utFree(storage); }

  static void* operator new(std::size_t, void* storage) noexcept { return storage; }
  static void operator delete(void*, void*) noexcept {}
};

}  // namespace graphics::datatype
