#include "NewArray.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/COSInterfaceDataType.h>
#include <vcos/COSClass.h>
#include <vcos/COSIterator.h>
#include <vx/objects.h>

#include <algorithm>
#include <vector>

namespace graphics::datatype {

using vcos::COSInterface;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vcos::COSValue;

template <>
struct PropertyTypeTraits<COSInterfaceDataType> {
  static constexpr std::size_t kBytes = sizeof(COSInterface*);
};
template class NamedDataType<COSInterfaceDataType>;

namespace {

std::vector<COSInterfacePtr> elementsOf(COSInterface* object) {
  std::vector<COSInterfacePtr> elements;
  vcos::COSIterator iterator(object, vcos::kIterateElements, vcos::kIterateForward);
  while (iterator.hasMoreElements())
    elements.push_back(iterator.nextElement());
  return elements;
}

/// The object that a number stands for, without a count of its own.
COSValue fromNumber(const vxArray* array) {
  const auto* const numbers = static_cast<const double*>(vxGetData(array));
  if (!numbers) return {};
  static const COSNameID number("double");
  static const COSNameID object(COSInterfaceDataType::kDottedName);
  const auto* const conversion = vcos::COSTypeRepository::getConversion(number, object);
  return conversion ? conversion->from(COSValue::fromDouble(*numbers)) : COSValue();
}

}  // namespace

COSValue COSInterfaceDataType::getDefaultValue() const {
  return {};
}

bool COSInterfaceDataType::isEqual(COSValue a, COSValue b) const {
  return a == b;
}

COSValue COSInterfaceDataType::copy(COSValue value) const {
  if (auto* const object = value.asPointer<COSInterface>()) object->addRef();
  return value;
}

void COSInterfaceDataType::destroy(COSValue value) const {
  if (auto* const object = value.asPointer<COSInterface>()) object->release();
}

COSValue COSInterfaceSC::to(COSValue) const {
  return {};
}
COSValue COSInterfaceSC::from(COSValue) const {
  return {};
}

COSValue COSInterfaceVC::to(COSValue value) const {
  static const COSNameID handle("handle");
  if (value.isNull()) return COSValue::fromPointer(omCreateVCOSEmpty(handle));
  auto* const object = value.asPointer<COSInterface>();
  const std::vector<COSInterfacePtr> elements = elementsOf(object);
  const vcos::COSClass* const ownClass = elements.size() < 2 ? object->getClass() : nullptr;
  ArrayPtr array(omCreateVCOSMatrix(1, std::max<std::size_t>(elements.size(), 1),
                                    ownClass ? ownClass->getNameID() : handle));
  for (std::size_t i = 0; i < elements.size(); ++i)
    omSetArrayElement(array.get(), i, elements[i]);
  return COSValue::fromPointer(array.release());
}

COSValue COSInterfaceVC::from(COSValue array) const {
  const auto* const given = array.asPointer<const vxArray>();
  if (!given) return {};
  if (vxGetClassID(given) == vxDOUBLE_CLASS) return fromNumber(given);
  if (!omIsVCOS(given)) return {};
  const ArrayPtr internal(vcosConvertArrayToInternal(given, true));
  if (!internal || vxIsEmpty(internal.get())) return {};
  const COSInterfacePtr object = omGetArrayElement(internal.get(), 0);
  if (object) object->addRef();
  return COSValue::fromPointer(object.get());
}

VGDT_REGISTER_TYPE(COSInterface, init_VortilGraphicsDatatype_COSInterfaceDataType,
                   init_VortilGraphicsDatatype_COSInterfaceDataType_callback)

}  // namespace graphics::datatype
