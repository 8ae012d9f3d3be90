#pragma once

/// The bodies of the templates that the classes of the enumerated types derive from.

#include "EnumeratedNames.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"
#include "WordEnumeration.h"

#include <graphics/datatype/EnumeratedType.h>
#include <messages/catalog.h>
#include <ut/memory.h>
#include <vx/errors.h>
#include <vx/scopes.h>

#include <memory>
#include <optional>

namespace graphics::datatype {

namespace messages = component_VORTIL::catalog_datatypes;

/// Fills the table of a type or of its own.
template <class TypeOrTable>
void addNames(EnumStringType& table) {
  for (const EnumeratedName& row : NamesOf<TypeOrTable>::kRows)
    table.addEnumValue(row.name, row.value);
}

/// `EnumerationOf<Type>::Class` walks the possible values of a type.
template <class Value>
struct EnumerationOf;

/// All enumerated types report one size, and start from a default-constructed value.
template <class Value>
struct EnumeratedTypeTraits {
  static constexpr std::size_t kBytes = reportedBytes(kEnumeratedTypes);
  static_assert(sizeof(Value) == kBytes);
  static Value* createDefault() { return new Value; }
};

template <class Type, class Value, class Style>
bool EnumeratedDataType<Type, Value, Style>::isPossibleValuesFinite() const {
  return true;
}

template <class Type, class Value, class Style>
vcos::Enumeration<vcos::COSValue> EnumeratedDataType<Type, Value, Style>::getPossibleValues()
    const {
  auto* list = new typename EnumerationOf<Value>::Class;
  vcos::Enumeration<vcos::COSValue> values(list);
  try {
    list->reserve(std::size(NamesOf<Value>::kRows));
    for (const EnumeratedName& row : NamesOf<Value>::kRows)
      list->add(vcos::COSValue::fromPointer(new Value(typename Value::value(row.value))));
  } catch (...) {
    while (values.hasMoreElements())
      this->destroy(values.nextElement());
    throw;
  }
  return values;
}

template <class DataType>
vcos::COSValue EnumeratedSC<DataType>::to(vcos::COSValue value) const {
  if (value.isNull()) return value;
  const int enumerator = value.asPointer<const EnumBase>()->getIntValue();
  const char* name = dataType_.getEnumString(vcos::COSValue::fromInteger(enumerator));
  const char* text = utStrdup(name);
  if (name && !text) throw vcos::COSOutOfMemoryException();
  return vcos::COSValue::fromPointer(text);
}

template <class DataType>
vcos::COSValue EnumeratedSC<DataType>::from(vcos::COSValue text) const {
  using Value = typename DataType::ValueClass;
  const char* name = text.asPointer<const char>();
  const std::optional<vcos::COSValue> value = dataType_.findEnumValue(name);
  if (!value) vxErrMsgId(messages::key_InvalidEnumValue(name ? name : "", dataType_.getName()));
  return vcos::COSValue::fromPointer(
      new Value(typename Value::value(value->template asInteger<int>())));
}

template <class DataType>
vcos::COSValue EnumeratedVC<DataType>::to(vcos::COSValue value) const {
  return vcos::COSValue::fromPointer(cache_.getVxArrayStringFor(value));
}

template <class DataType>
vcos::COSValue EnumeratedVC<DataType>::from(vcos::COSValue value) const {
  const auto* array = value.asPointer<const vxArray>();
  if (!array) return {};
  if (vxGetClassID(array) != vxCHAR_CLASS)
    vxErrMsgId(messages::key_InvalidEnumValueFor(dataType_.getName()));
  if (vxIsEmpty(array)) vxErrMsgId(messages::key_InvalidValue(dataType_.getName()));

  struct Free {
    void operator()(char* text) const noexcept { vxFreeEx(text); }
  };
  const std::unique_ptr<char, Free> text(vxCreateCStrFromArray(array, vxMallocEx));
  if (!text) vxErrMsgId(messages::key_OutOfMemory());
  return EnumeratedSC<DataType>(dataType_).from(vcos::COSValue::fromPointer(text.get()));
}

template <class DataType, class ArrayConversion, class TextConversion>
void registerEnumeratedType() {
  auto* type = dynamic_cast<DataType*>(DataType::getType());
  if (!type) return;
  registerType<ArrayConversion, TextConversion>(type, DataType::getDataTypeName(), *type);
}

}  // namespace graphics::datatype
