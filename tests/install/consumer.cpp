// A program of another project: finds the installed library and puts a value through it.

#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <vcos/TypeAccess.h>

#include <cstdio>

int main() {
  VLInitialize_vgdatatypes();
  const auto type = vcos::TypeAccess::find(vcos::COSNameID("vortil.graphics.datatype.on_off"));
  if (!type || &type->dataType() != graphics::datatype::OnOffBooleanDataType::getType()) return 1;
  const vcos::OwnedValue value(type->dataType(), type->fromText("OFF"));
  std::puts(type->toText(value.get())->c_str());
}
