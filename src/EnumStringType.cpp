#include <graphics/datatype/EnumStringType.h>

namespace graphics::datatype {

EnumStringType::EnumStringType(const char* name) : VGTypedEnumStringType(name) {}
EnumStringType::EnumStringType(const char* name, NameRows rows)
    : VGTypedEnumStringType(name, rows) {}

void EnumStringType::addEnumValue(const char* name, int value) {
  addElement(vcos::COSValue::fromInteger(value), name);
}

}  // namespace graphics::datatype
