#include "enumerated/EnumeratedSupport.h"

#include <graphics/datatype/EnumBase.h>
#include <messages/catalog.h>
#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/errors.h>

#include <optional>

namespace graphics::datatype {

using vcos::COSValue;
namespace messages = component_VORTIL::catalog_datatypes;

void addNames(EnumStringType& table, NameRows rows) {
  for (const EnumeratedName& row : rows)
    table.addEnumValue(row.name, row.value);
}

vcos::Enumeration<COSValue> listValues(WordEnumeration* list, NameRows rows,
                                       const vcos::COSDataType& type,
                                       COSValue (*makeValue)(int enumerator)) {
  vcos::Enumeration<COSValue> values(list);
  try {
    list->reserve(rows.size());
    for (const EnumeratedName& row : rows)
      list->add(makeValue(row.value));
  } catch (...) {
    while (values.hasMoreElements())
      type.destroy(values.nextElement());
    throw;
  }
  return values;
}

COSValue copyName(const EnumStringType& table, COSValue value) {
  if (value.isNull()) return value;
  const int enumerator = value.asPointer<const EnumBase>()->getIntValue();
  const char* name = table.getEnumString(COSValue::fromInteger(enumerator));
  const char* copy = utStrdup(name);
  if (name && !copy) throw vcos::COSOutOfMemoryException();
  return COSValue::fromPointer(copy);
}

int requireEnumerator(const EnumStringType& table, const char* text, const char* typeName) {
  const std::optional<COSValue> value = table.findEnumValue(text);
  if (!value) vxErrMsgId(messages::key_InvalidEnumValue(text ? text : "", typeName));
  return value->asInteger<int>();
}

ArrayText requireText(const vxArray* array, const char* typeName) {
  if (vxGetClassID(array) != vxCHAR_CLASS) vxErrMsgId(messages::key_InvalidEnumValueFor(typeName));
  if (vxIsEmpty(array)) vxErrMsgId(messages::key_InvalidValue(typeName));
  ArrayText text(vxCreateCStrFromArray(array, vxMallocEx));
  if (!text) vxErrMsgId(messages::key_OutOfMemory());
  return text;
}

}  // namespace graphics::datatype
