#pragma once

/// Texts on the host's heap.

#include <ut/memory.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>

#include <memory>

namespace graphics::datatype {

/// A copy for whoever called, who frees it with utFree; null for null. A
/// vcos::COSOutOfMemoryException if there is no memory for it.
inline char* copyText(const char* text) {
  char* const copy = utStrdup(text);
  if (text && !copy) throw vcos::COSOutOfMemoryException();
  return copy;
}

/// The host's own conversion between arrays and texts; null if it has none.
inline const vcos::COSTypeConversion* arrayTextConversion() {
  static const vcos::COSNameID array("any");
  static const vcos::COSNameID text("string");
  return vcos::COSTypeRepository::getConversion(array, text);
}

struct FreeHostText {
  void operator()(char* text) const noexcept { utFree(text); }
};
using HostText = std::unique_ptr<char, FreeHostText>;

}  // namespace graphics::datatype
