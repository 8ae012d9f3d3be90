#include "ArrayHeader.h"

#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vx/objects.h>

using namespace vghost;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vghost::faults::countHostCall;

namespace {

vxArray* sharedCopy(const vxArray* array, const char* operation) {
  countHostCall(operation);
  requireClass(array, vxOBJECT_CLASS, operation);
  return new vxArray(*array);
}

}  // namespace

vxArray* omCreateVCOSScalar(const COSInterfacePtr& object) {
  if (!object) return omCreateVCOSEmpty(COSNameID("handle"));
  countHostCall("omCreateVCOSScalar");
  constexpr std::size_t kDimensions[] = {1, 1};
  requireMemory(1, sizeof(COSInterfacePtr), kDimensions, 2);
  ArrayPtr array(new vxArray(vxOBJECT_CLASS, kDimensions, 2));
  const vcos::COSClass* const ownClass = object->getClass();
  array->className = (ownClass ? ownClass->getNameID() : COSNameID("handle")).c_str();
  array->block = new ObjectBlock(object);
  return array.release();
}

vxArray* omCreateVCOSEmpty(COSNameID className) {
  return omCreateVCOSMatrix(0, 0, className);
}

vxArray* omCreateVCOSMatrix(std::size_t m, std::size_t n, COSNameID className) {
  countHostCall("omCreateVCOSMatrix");
  const std::size_t dimensions[] = {m, n};
  ArrayPtr array = createArray(vxOBJECT_CLASS, dimensions, 2);
  array->className = className.c_str();
  return array.release();
}

COSInterfacePtr omGetArrayElement(const vxArray* array, std::size_t index) {
  requireClass(array, vxOBJECT_CLASS, "omGetArrayElement");
  requireIndex(index, array->count());
  return static_cast<ObjectBlock*>(array->block.get())->at(index);
}

void omSetArrayElement(vxArray* array, std::size_t index, const COSInterfacePtr& object) {
  countHostCall("omSetArrayElement");
  requireClass(array, vxOBJECT_CLASS, "omSetArrayElement");
  requireIndex(index, array->count());
  static_cast<ObjectBlock*>(array->writableBlock())->at(index) = object;
}

bool omIsVCOS(const vxArray* array) noexcept {
  return array && array->classID == vxOBJECT_CLASS;
}

vxArray* vcosConvertArrayToInternal(const vxArray* array, bool) {
  return sharedCopy(array, "vcosConvertArrayToInternal");
}

vxArray* vcosConvertArrayToExternal(const vxArray* array) {
  return sharedCopy(array, "vcosConvertArrayToExternal");
}
