// A program of another project: finds the installed library and puts a value through it.

#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <vcos/TypeAccess.h>

#include <cstdio>

using graphics::datatype::LineStyle;
using graphics::datatype::LineStyleDataType;

int main() {
  VLInitialize_vgdatatypes();
  const auto type = vcos::TypeAccess::find(vcos::COSNameID(LineStyleDataType::getDataTypeName()));
  if (!type || &type->dataType() != LineStyleDataType::getType()) return 1;
  const vcos::OwnedValue value(type->dataType(), type->fromText("N"));
  if (!value.get().asPointer<LineStyle>()->isNone()) return 1;
  std::puts(type->toText(value.get())->c_str());
}
