#include "literal/ClassCast.h"

#include "ArrayElements.h"

#include <algorithm>

namespace vgdt {
namespace {

template <class To, class From>
void castElements(const vxArray* from, vxArray* to) {
  std::ranges::transform(elementsOf<From>(from), writableElementsOf<To>(to).begin(),
                         castElement<To, From>);
  if (vxIsComplex(from))
    std::ranges::transform(imaginaryPartsOf<From>(from), writableImaginaryPartsOf<To>(to).begin(),
                           castElement<To, From>);
}

}  // namespace

vcos::ArrayOwner castArray(const vxArray* array, vxClassID classID) {
  const vcos::ArrayOwner full(vxMustBeFull(array));
  vcos::ArrayOwner result =
      makeArray(classID, dimensionsOf(array), vxIsComplex(array) ? vxCOMPLEX : vxREAL);
  withElementType(vxGetClassID(array), [&]<class From>(std::type_identity<From>) {
    withElementType(classID, [&]<class To>(std::type_identity<To>) {
      castElements<To, From>(full.get(), result.get());
    });
  });
  return vxIsSparse(array) ? vcos::ArrayOwner(vxCreateSparse(result.get())) : std::move(result);
}

}  // namespace vgdt
