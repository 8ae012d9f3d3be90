#include "enumerated/EnumeratedSupport.h"

#include "HostText.h"

#include <graphics/datatype/EnumBase.h>
#include <messages/catalog.h>
#include <vx/array.h>
#include <vx/errors.h>
#include <vx/scopes.h>

#include <memory>
#include <optional>

namespace graphics::datatype {

using vcos::COSValue;
namespace messages = component_VORTIL::catalog_datatypes;

namespace {

struct FreeText {
  void operator()(char* text) const noexcept { vxFreeEx(text); }
};
using ArrayText = std::unique_ptr<char, FreeText>;

/// The text of a char array with elements.
ArrayText requireText(const vxArray* array, const char* typeName) {
  if (vxGetClassID(array) != vxCHAR_CLASS) vxErrMsgId(messages::key_InvalidEnumValueFor(typeName));
  if (vxIsEmpty(array)) vxErrMsgId(messages::key_InvalidValue(typeName));
  ArrayText text(vxCreateCStrFromArray(array, vxMallocEx));
  if (!text) vxErrMsgId(messages::key_OutOfMemory());
  return text;
}

}  // namespace

vcos::Enumeration<COSValue> listValues(WordEnumeration* list, NameRows rows,
                                       const vcos::COSDataType& type, MakeEnumerated makeValue) {
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
  return COSValue::fromPointer(copyText(table.getEnumString(COSValue::fromInteger(enumerator))));
}

COSValue valueFromText(const EnumStringType& table, const char* typeName, MakeEnumerated makeValue,
                       COSValue text) {
  const char* const name = text.asPointer<const char>();
  const std::optional<COSValue> value = table.findEnumValue(name);
  if (!value) vxErrMsgId(messages::key_InvalidEnumValue(name ? name : "", typeName));
  return makeValue(value->asInteger<int>());
}

COSValue valueFromArray(const EnumStringType& table, const char* typeName, MakeEnumerated makeValue,
                        COSValue array) {
  if (array.isNull()) return array;
  const ArrayText text = requireText(array.asPointer<const vxArray>(), typeName);
  return valueFromText(table, typeName, makeValue, COSValue::fromPointer(text.get()));
}

}  // namespace graphics::datatype
