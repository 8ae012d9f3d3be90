#include "JavaObjects.h"
#include "NewArray.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/COSInterfaceDataType.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <messages/catalog.h>
#include <vx/errors.h>
#include <vx/objects.h>
#include <vx/protected_array.h>

#include <utility>

namespace graphics::datatype {

using vcos::COSInterface;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vcos::COSValue;

namespace Messages = VORTIL::datatypes::handleoremptydatatype;

template <>
struct PropertyTypeTraits<HandleOrEmptyDataType> : PlainValues<HandleOrEmpty> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(HandleOrEmpty) == kBytes);

  static HandleOrEmpty* createDefault() {
    return new HandleOrEmpty(static_cast<const vxArray*>(nullptr));
  }
  static bool isEqual(const HandleOrEmpty& a, const HandleOrEmpty& b) {
    try {
      return a == b;
    } catch (...) {
      vxErrMsgId(Messages::IsEqualException());
    }
  }
};
template class NamedDataType<HandleOrEmptyDataType>;
template class PropertyDataType<HandleOrEmptyDataType, HandleOrEmpty>;

namespace {

/// The host's type whose words are arrays.
const vcos::COSDataTypePtr& getVxArrayDataType() {
  static const vcos::COSDataTypePtr type = vcos::COSTypeRepository::getType(COSNameID("any"));
  return type;
}

const vcos::COSDataType& arrayType() {
  return *getVxArrayDataType().getObject();
}

vxArray* createEmpty() {
  static const COSNameID handle("handle");
  return omCreateVCOSEmpty(handle);
}

Vprotected_vxArray localized(vxArray* array) {
  Vprotected_vxArray owner(array);
  owner.myLocalize();
  return owner;
}

COSInterfacePtr firstObject(const vxArray* array) {
  return array && !vxIsEmpty(array) ? omGetArrayElement(array, 0) : COSInterfacePtr();
}

}  // namespace

HandleOrEmpty::HandleOrEmpty(const vxArray* array) {
  HandleOrEmpty::setHandle(array);
}

HandleOrEmpty::HandleOrEmpty(const COSInterfacePtr& object) {
  const ArrayPtr array(object ? omCreateVCOSScalar(object) : nullptr);
  HandleOrEmpty::setHandle(array.get());
}

HandleOrEmpty::HandleOrEmpty(const HandleOrEmpty& other) : HostAllocated(other) {
  HandleOrEmpty::setHandle(other.getHandle());
}

HandleOrEmpty& HandleOrEmpty::operator=(const HandleOrEmpty& other) {
  if (this != &other && !(*this == other)) copy(other);
  return *this;
}

HandleOrEmpty::~HandleOrEmpty() {
  cleanup();
}

void HandleOrEmpty::copy(const HandleOrEmpty& other) {
  setHandle(other.getHandle());
}

void HandleOrEmpty::cleanup() noexcept {
  if (handle_) arrayType().destroyInternal(COSValue::fromPointer(std::exchange(handle_, nullptr)));
}

void HandleOrEmpty::setHandle(const vxArray* array) {
  const bool isEmpty = !array || vxIsEmpty(array);
  const bool isObject = omIsVCOS(array);
  if (!isEmpty && !isObject && vxGetClassID(array) != vxDOUBLE_CLASS)
    throwInvalidPropertyException();
  const Vprotected_vxArray made = localized(isEmpty    ? createEmptyObject()
                                            : isObject ? vxCreateSharedDataCopy(array)
                                                       : convertDoubleToHandle(array));
  // The copy is made before the old array is given up, so that it may fail.
  const COSValue kept = arrayType().copyInternal(COSValue::fromPointer(made.get()));
  cleanup();
  handle_ = kept.asPointer<vxArray>();
}

COSInterfacePtr HandleOrEmpty::getCOSReference() const {
  return firstObject(handle_);
}

vxArray* HandleOrEmpty::getSharedObjectCopy() const {
  return handle_ ? vcosConvertArrayToExternal(handle_) : nullptr;
}

bool HandleOrEmpty::operator==(const HandleOrEmpty& other) const {
  if (handle_ == other.handle_) return true;
  if (isArrayEmpty(handle_) && isArrayEmpty(other.handle_)) return true;
  return getCOSReference() == other.getCOSReference();
}

vxArray* HandleOrEmpty::createEmptyObject() const {
  return createEmpty();
}

vxArray* HandleOrEmpty::convertDoubleToHandle(const vxArray* numbers) const {
  static const COSNameID number("double");
  static const COSNameID reference(COSInterfaceDataType::kDottedName);
  const auto* const first = static_cast<const double*>(vxGetData(numbers));
  const auto* const conversion = vcos::COSTypeRepository::getConversion(number, reference);
  COSInterfacePtr object;
  if (first && conversion)
    object =
        COSInterfacePtr(conversion->from(COSValue::fromDouble(*first)).asPointer<COSInterface>());
  if (!object || object->isDestroyed()) throwInvalidPropertyException();
  return omCreateVCOSScalar(object);
}

bool HandleOrEmpty::isArrayEmpty(const vxArray* array) const noexcept {
  return array && vxIsEmpty(array);
}

COSInterfacePtr HandleOrEmpty::convertValue(const vcos::COSPropInfo* property,
                                            COSValue value) const {
  const auto* const conversion =
      vcos::COSTypeRepository::getConversion(COSNameID("any"), property->getDataType().getID());
  if (!conversion) return {};
  const Vprotected_vxArray array = localized(conversion->to(value).asPointer<vxArray>());
  return firstObject(array.get());
}

void throwInvalidPropertyException() {
  vxErrMsgId(Messages::InvalidVGHandle());
}

COSValue HandleOrEmptySC::to(COSValue) const {
  vxErrMsgId(Messages::DataTypeToString());
}
COSValue HandleOrEmptySC::from(COSValue) const {
  vxErrMsgId(Messages::StringToDataType());
}

COSValue HandleOrEmptyVC::to(COSValue value) const {
  const auto* const handle = value.asPointer<const HandleOrEmpty>();
  vxArray* const array = handle ? handle->getSharedObjectCopy() : nullptr;
  return COSValue::fromPointer(array ? array : createEmpty());
}

COSValue HandleOrEmptyVC::from(COSValue array) const {
  return COSValue::fromPointer(new HandleOrEmpty(array.asPointer<const vxArray>()));
}

COSValue HandleOrEmptyJC::to(COSValue value) const {
  const auto* const handle = value.asPointer<const HandleOrEmpty>();
  const COSInterfacePtr object = handle ? handle->getCOSReference() : COSInterfacePtr();
  if (!object) return {};
  return javaConversionOf("handle scalar").to(COSValue::fromPointer(object.get()));
}

COSValue HandleOrEmptyJC::from(COSValue object) const {
  auto* const referred =
      object.isNull() ? nullptr
                      : javaConversionOf("handle scalar").from(object).asPointer<COSInterface>();
  const COSInterfacePtr reference(referred);
  if (referred) referred->release();  // the count that came with it
  return COSValue::fromPointer(new HandleOrEmpty(reference));
}

const char* HandleOrEmptyJC::getJavaDeclarationName() {
  return "com.lindgrove.jvi.bean.UDDObject";
}

VGDT_REGISTER_TYPE(HandleOrEmpty, init_VortilGraphicsDatatype_HandleOrEmptyDataType,
                   init_VortilGraphicsDatatype_HandleOrEmptyDataType_callback)

}  // namespace graphics::datatype
