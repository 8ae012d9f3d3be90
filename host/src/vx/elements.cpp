#include "ArrayHeader.h"

#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vx/class_dispatch.h>
#include <vx/element_types.h>

#include <algorithm>

using namespace vghost;
using vghost::faults::countHostCall;

namespace {

const PlainBlock* plainBlock(const vxArray* array) noexcept {
  return array->elementSize() == 0 ? nullptr : static_cast<const PlainBlock*>(array->block.get());
}

PlainBlock* writablePlainBlock(vxArray* array) {
  return array->elementSize() == 0 ? nullptr : static_cast<PlainBlock*>(array->writableBlock());
}

const vxArray* slotContent(const vxArray* array, std::size_t index, std::size_t part) {
  requireIndex(index, array->count());
  return static_cast<CellBlock*>(array->block.get())->at(index, part).get();
}

/// `element` is on no list and destroyed unless it arrives.
void setSlot(vxArray* array, std::size_t index, std::size_t part, ArrayPtr element) {
  requireIndex(index, array->count());
  static_cast<CellBlock*>(array->writableBlock())->at(index, part).reset(element.release());
}

ArrayPtr takeOver(vxArray* element) noexcept {
  if (element) element->unlink();
  return ArrayPtr(element);
}

std::size_t checkedField(const vxArray* array, int field, const char* operation) {
  requireClass(array, vxSTRUCT_CLASS, operation);
  const auto index = static_cast<std::size_t>(field);
  requireIndex(index, array->names->size());
  return index;
}

}  // namespace

const void* vxGetData(const vxArray* array) noexcept {
  const PlainBlock* block = plainBlock(array);
  return block ? block->real() : nullptr;
}

const void* vxGetImagData(const vxArray* array) noexcept {
  const PlainBlock* block = plainBlock(array);
  return block ? block->imag() : nullptr;
}

void* vxGetWritableData(vxArray* array) {
  PlainBlock* block = writablePlainBlock(array);
  return block ? block->real() : nullptr;
}

void* vxGetWritableImagData(vxArray* array) {
  PlainBlock* block = writablePlainBlock(array);
  return block ? block->imag() : nullptr;
}

double vxGetScalar(const vxArray* array) {
  countHostCall("vxGetScalar");
  if (!hasPlainElements(array->classID)) raiseWrongClass("vxGetScalar", vxGetClassName(array));
  requireIndex(0, array->count());
  return withElementType(array->classID, [array]<class T>(std::type_identity<T>) {
    return static_cast<double>(*static_cast<const T*>(vxGetData(array)));
  });
}

const bool* vxGetLogicals(const vxArray* array) {
  requireClass(array, vxLOGICAL_CLASS, "vxGetLogicals");
  return static_cast<const bool*>(vxGetData(array));
}

const vxArray* vxGetCell(const vxArray* array, std::size_t index) {
  requireClass(array, vxCELL_CLASS, "vxGetCell");
  return slotContent(array, index, 0);
}

void vxSetCell(vxArray* array, std::size_t index, vxArray* element) {
  ArrayPtr taken = takeOver(element);
  countHostCall("vxSetCell");
  requireClass(array, vxCELL_CLASS, "vxSetCell");
  setSlot(array, index, 0, std::move(taken));
}

int vxGetNumberOfFields(const vxArray* array) {
  if (array->classID != vxSTRUCT_CLASS) return 0;
  return static_cast<int>(array->names->size());
}

const char* vxGetFieldNameByNumber(const vxArray* array, int field) {
  return (*array->names)[checkedField(array, field, "vxGetFieldNameByNumber")].c_str();
}

const vxArray* vxGetFieldByNumber(const vxArray* array, std::size_t index, int field) {
  return slotContent(array, index, checkedField(array, field, "vxGetFieldByNumber"));
}

void vxSetFieldByNumber(vxArray* array, std::size_t index, int field, vxArray* element) {
  ArrayPtr taken = takeOver(element);
  countHostCall("vxSetFieldByNumber");
  setSlot(array, index, checkedField(array, field, "vxSetFieldByNumber"), std::move(taken));
}

const char* vxGetFunctionName(const vxArray* array) {
  requireClass(array, vxFUNCTION_CLASS, "vxGetFunctionName");
  return array->names->front().c_str();
}

vxClassID vg::TL::detail::ArrayDispatcherBase::getClassID(const vxArray* array) noexcept {
  return array ? array->classID : vxClassID{};
}
