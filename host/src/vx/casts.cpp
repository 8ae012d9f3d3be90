#include "ArrayHeader.h"

#include <ut/faults.h>
#include <vx/element_types.h>

#include <algorithm>

using namespace vghost;

vxArray* vxMustBe(const vxArray* array, vxClassID classID) {
  faults::countHostCall("vxMustBe");
  if (array->classID == classID)
    return array->sparse ? vxMustBeFull(array) : const_cast<vxArray*>(array);
  for (const vxClassID id : {array->classID, classID})
    if (!hasPlainElements(id)) raiseWrongClass("vxMustBe", vxClassName(id));
  const Dimensions& dimensions = array->dimensions;
  ArrayPtr result(vxCreateNumericArray(dimensions.size(), dimensions.data(), classID,
                                       array->complex ? vxCOMPLEX : vxREAL));
  withElementType(array->classID, [&]<class From>(std::type_identity<From>) {
    withElementType(classID, [&]<class To>(std::type_identity<To>) {
      const auto cast = [count = array->count()](const void* from, void* to) {
        std::transform(static_cast<const From*>(from), static_cast<const From*>(from) + count,
                       static_cast<To*>(to), castElement<To, From>);
      };
      cast(vxGetData(array), vxGetWritableData(result.get()));
      if (array->complex) cast(vxGetImagData(array), vxGetWritableImagData(result.get()));
    });
  });
  return result.release();
}
