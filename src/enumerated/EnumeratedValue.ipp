#pragma once

/// The bodies of the templates that the conversions of the enumerated types derive from.

#include "enumerated/EnumeratedSupport.h"

#include <graphics/datatype/EnumeratedValue.h>

namespace graphics::datatype {

template <class Value>
vcos::COSValue makeValue(int enumerator) {
  return vcos::COSValue::fromPointer(new Value(static_cast<typename Value::value>(enumerator)));
}

template <class DataType>
vcos::COSValue EnumeratedSC<DataType>::to(vcos::COSValue value) const {
  return copyName(dataType_, value);
}

template <class DataType>
vcos::COSValue EnumeratedSC<DataType>::from(vcos::COSValue text) const {
  return makeValue<typename DataType::ValueClass>(
      requireEnumerator(dataType_, text.asPointer<const char>(), dataType_.getName()));
}

template <class DataType>
vcos::COSValue EnumeratedVC<DataType>::to(vcos::COSValue value) const {
  return vcos::COSValue::fromPointer(cache_.getVxArrayStringFor(value));
}

template <class DataType>
vcos::COSValue EnumeratedVC<DataType>::from(vcos::COSValue array) const {
  if (array.isNull()) return {};
  const ArrayText text = requireText(array.asPointer<const vxArray>(), dataType_.getName());
  return EnumeratedSC<DataType>(dataType_).from(vcos::COSValue::fromPointer(text.get()));
}

}  // namespace graphics::datatype
