#include "shaped/ShapedConversions.h"

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/vxErrMsgWrapper.h>
#include <gui_objects/convert_from_string_utils.h>

#include <string>

namespace graphics::datatype::shaped {

using vcos::COSValue;

COSValue valueFromText(const ShapedType& type, COSValue text, NewValue newValue) {
  namespace convert = gui_objects::convert_from_string_utils;
  if (text.isNull()) return {};
  try {
    const char* const characters = text.asPointer<const char>();
    const auto [rows, columns] = convert::parse_array_dimensions(characters);
    if (rows == 0 || columns == 0) return newValue(nullptr);
    const gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
        convert::parse_mxn(rows, columns, type.storageClass, characters));
    return array ? newValue(array.get()) : COSValue();
  } catch (const convert::ParseException&) {
    const std::string identifier = std::string("datatypes:") + type.name + ":ParseException";
    vxErrMsgWrapper(identifier.c_str(), "Invalid String", type.name);
  }
}

COSValue textOf(COSValue value) {
  if (value.isNull()) return value;
  return COSValue::fromPointer(value.asPointer<const ArrayBase>()->convert_to_string());
}

COSValue arrayOf(const ShapedType& type, COSValue value) {
  const auto* const arrayBase = value.asPointer<const ArrayBase>();
  if (!arrayBase || !arrayBase->getPtr())
    return COSValue::fromPointer(vxCreateNumericMatrix(0, 0, type.storageClass, vxREAL));
  return COSValue::fromPointer(arrayBase->getSharedDataCopy().release());
}

}  // namespace graphics::datatype::shaped
