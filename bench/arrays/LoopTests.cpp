// Loops without a library.

#include "PlainTests.h"

#include <wchar.h>

#include <algorithm>

namespace arrays {
namespace {

template <class Rules>
bool loop(const typename Rules::Element* elements, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    if (!Rules::passes(elements[i])) return false;
  return true;
}

template <class Rules>
bool allOf(const typename Rules::Element* elements, std::size_t count) {
  return std::all_of(elements, elements + count, Rules::passes);
}

bool hasNoZero(const std::uint32_t* elements, std::size_t count) {
  static_assert(sizeof(wchar_t) == sizeof *elements);
  return !wmemchr(reinterpret_cast<const wchar_t*>(elements), 0, count);
}

template <class Rules>
void addLoops() {
  plainTests<Rules>().push_back({"loop", loop<Rules>});
  plainTests<Rules>().push_back({"all_of", allOf<Rules>});
}

[[maybe_unused]] const bool added = [] {
  addLoops<ColorMapRules>();
  addLoops<PrimitiveVertexDataRules>();
  addLoops<PrimitiveVertexIndicesRules>();
  addLoops<PatchFacesRules>();
  plainTests<PrimitiveVertexIndicesRules>().push_back({kZeroSearch, hasNoZero});
  return true;
}();

}  // namespace
}  // namespace arrays
