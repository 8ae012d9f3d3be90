#include "comparison.h"
#include "ArrayHeader.h"

#include <algorithm>
#include <cstring>

namespace vghost {
namespace {

bool haveSameBytes(const void* a, const void* b, std::size_t bytes) {
  return (a == nullptr) == (b == nullptr) && (!a || std::memcmp(a, b, bytes) == 0);
}

bool haveSameElements(const vxArray& a, const vxArray& b) {
  const std::size_t count = a.count();
  if (count == 0 || a.block == b.block) return true;
  if (const std::size_t bytes = count * a.elementSize())
    return haveSameBytes(vxGetData(&a), vxGetData(&b), bytes) &&
           haveSameBytes(vxGetImagData(&a), vxGetImagData(&b), bytes);
  if (a.classID == vxOBJECT_CLASS) {
    auto& first = static_cast<ObjectBlock&>(*a.block);
    auto& second = static_cast<ObjectBlock&>(*b.block);
    return std::equal(&first.at(0), &first.at(0) + count, &second.at(0));
  }
  auto& first = static_cast<CellBlock&>(*a.block);
  auto& second = static_cast<CellBlock&>(*b.block);
  const std::size_t slots = a.classID == vxSTRUCT_CLASS ? count * a.names->size() : count;
  for (std::size_t i = 0; i < slots; ++i)
    if (!areSame(first.at(0, i).get(), second.at(0, i).get())) return false;
  return true;
}

}  // namespace

bool areSame(const vxArray* a, const vxArray* b) {
  if (!a || !b) return a == b;
  const bool haveSameNames =
      a->names == b->names || (a->names && b->names && *a->names == *b->names);
  return a->classID == b->classID && a->sparse == b->sparse && a->complex == b->complex &&
         std::strcmp(vxGetClassName(a), vxGetClassName(b)) == 0 && a->dimensions == b->dimensions &&
         haveSameNames && haveSameElements(*a, *b);
}

}  // namespace vghost
