#include "NewArray.h"

#include <callback/VCallback.h>
#include <graphics/datatype/CallbackItem.h>
#include <graphics/datatype/enumerated_types.h>
#include <vx/objects.h>

#include <utility>

namespace graphics::datatype {
namespace {

vcos::COSPropInfoPtr findProperty(const vcos::COSInterfacePtr& object, vcos::COSNameID name) {
  return vcos::COSPropInfoPtr(object->findProperty(name));
}

bool isAlive(const vcos::COSInterfacePtr& object) {
  return object && !object->isDestroyed();
}

}  // namespace

CallbackItem::CallbackItem(vcos::COSInterfacePtr source, vcos::COSPropInfoPtr property,
                           const vxArray* data)
    : sourceObject(std::move(source)),
      callbackProperty(std::move(property)),
      eventData(data ? vxCreateSharedCopyNotOnArrayList(data) : nullptr) {}

CallbackItem::~CallbackItem() = default;

const char* CallbackItem::getClassName() {
  return isAlive(sourceObject) ? sourceObject->getClass()->getName() : "DestroyedObject";
}

const char* CallbackItem::getCallbackName() {
  return callbackProperty.getObject()->getName();
}

bool CallbackItem::isInterruptible() {
  static const vcos::COSNameID name("Interruptible");
  const vcos::COSPropInfoPtr found = findProperty(sourceObject, name);
  const vcos::COSPropInfo* const property = found.getObject();
  return !property || property->getValue(sourceObject.get()).asLogical();
}

bool CallbackItem::canQueue() {
  static const vcos::COSNameID name("BusyAction");
  const vcos::COSPropInfoPtr found = findProperty(sourceObject, name);
  const vcos::COSPropInfo* const property = found.getObject();
  // A word of another type could not be read.
  if (!property || property->getDataType().getObject() != BusyActionDataType::getType())
    return false;
  const vcos::COSValue value = property->getValue(sourceObject.get());
  return !value.isNull() && value.asPointer<const BusyAction>()->isQueue();
}

bool CallbackItem::execute() {
  exceptionCaught = false;
  if (!isAlive(sourceObject)) return false;
  const vcos::COSValue value = callbackProperty.getObject()->getValue(sourceObject.get());
  if (value.isNull()) return false;
  const ArrayPtr source(omCreateVCOSScalar(sourceObject));
  VCallback* const reference = GetVCallbackReference(value.asPointer<VCallback>());
  const bool failed = reference->execute(source.get(), eventData.get()) != 0;
  exceptionCaught = reference->wasExceptionCaughtAndSaved();
  DestroyVCallback(reference);  // kept: an exception out of execute() leaves the reference
  return failed;
}

}  // namespace graphics::datatype
