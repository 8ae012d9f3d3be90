#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/ColorTableDataType.h>
#include <gui_objects/AutoPtr.h>
#include <vx/array.h>
#include <vx/errors.h>
#include <vx/scopes.h>
#include <boost/numeric/conversion/cast.hpp>

#include <exception>
#include <utility>
#include <vector>

namespace graphics::datatype {

using vcos::COSValue;

template <>
struct PropertyTypeTraits<ColorTableDataType> {
  static constexpr std::size_t kBytes = 0;  // kept, although a word is a pointer
};
template class NamedDataType<ColorTableDataType>;

namespace {

using ArrayOwner = gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>;

int fieldCount(std::size_t names) {
  try {
    return boost::numeric_cast<int>(names);
  } catch (const std::exception&) {
    vxErrMsg(vxMSG_TOO_MANY_FIELDS);
  }
}

ArrayOwner structOf(const ColorNameTable::ColorMap& colors) {
  std::vector<const char*> names;
  names.reserve(colors.size());
  for (const auto& [name, color] : colors)
    names.push_back(name.c_str());
  return ArrayOwner(vxCreateStructMatrix(1, 1, fieldCount(names.size()), names.data()));
}

vxArray* newArray(const ColorNameTable::ColorValue& color) {
  vxArray* const array = vxCreateDoubleMatrix(1, 3, vxREAL);
  auto* const numbers = static_cast<double*>(vxGetWritableData(array));
  numbers[0] = color.red;
  numbers[1] = color.green;
  numbers[2] = color.blue;
  return array;
}

bool isColor(const vxArray* field) {
  return field && vxGetClassID(field) == vxDOUBLE_CLASS && !vxIsComplex(field) &&
         vxGetNumberOfElements(field) >= 3;
}

bool mayHaveFields(const vxArray* array) {
  if (!array || vxIsEmpty(array)) return false;
  const vxClassID classID = vxGetClassID(array);
  return classID == vxSTRUCT_CLASS || classID == vxOBJECT_CLASS;
}

}  // namespace

COSValue ColorTableDataType::getDefaultValue() const {
  static constinit vxArray* defaultValue = nullptr;
  if (!defaultValue) {
    defaultValue = vxCreateDoubleMatrix(0, 0, vxREAL);
    vxSetArrayScope(defaultValue, 0);
  }
  return COSValue::fromPointer(defaultValue);
}

bool ColorTableDataType::isEqual(COSValue a, COSValue b) const {
  return a == b;
}

COSValue ColorTableDataType::copy(COSValue value) const {
  if (value.isNull()) return value;
  return COSValue::fromPointer(vxCreateSharedDataCopy(value.asPointer<const vxArray>()));
}

void ColorTableDataType::destroy(COSValue value) const {
  vxDestroyArray(value.asPointer<vxArray>());
}

COSValue ColorTableSC::to(COSValue) const {
  return {};
}
COSValue ColorTableSC::from(COSValue) const {
  return {};
}

COSValue ColorTableVC::to(COSValue) const {
  return COSValue::fromPointer(getColorTableAsArray());
}

COSValue ColorTableVC::from(COSValue array) const {
  ColorNameTable* const table = ColorNameTable::getInstance();
  ColorNameTable changed = *table;
  const auto* const given = array.asPointer<const vxArray>();
  const int fields = mayHaveFields(given) ? vxGetNumberOfFields(given) : 0;
  for (int i = 0; i < fields; ++i) {
    const vxArray* const field = vxGetFieldByNumber(given, 0, i);
    if (!isColor(field)) continue;
    const auto* const numbers = static_cast<const double*>(vxGetData(field));
    changed.addNamedColor(vxGetFieldNameByNumber(given, i), numbers[0], numbers[1], numbers[2],
                          true);
  }
  *table = std::move(changed);
  return COSValue::fromPointer(table);
}

vxArray* getColorTableAsArray() {
  const ColorNameTable::ColorMap& colors = ColorNameTable::getInstance()->getColorMap();
  ArrayOwner array = structOf(colors);
  int field = 0;
  for (const auto& [name, color] : colors)
    vxSetFieldByNumber(array.get(), 0, field++, newArray(color));
  vxSetArrayScope(array.get(), 0);
  return array.release();
}

VGDT_REGISTER_TYPE(ColorTable, init_VortilGraphicsDatatype_ColorTableDataType,
                   init_VortilGraphicsDatatype_ColorTableDataType_callback)

}  // namespace graphics::datatype
