#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/property_helpers.h>
#include <messages/catalog.h>
#include <vcos/COSClass.h>
#include <vcos/COSNameID.h>
#include <vx/errors.h>

#include <string>

namespace graphics::datatype {
namespace {

/// The property `lookedUp`; the error names `given`.
vcos::COSPropInfo& requireProperty(const vcos::COSInterface& object, const char* lookedUp,
                                   const char* given) {
  const vcos::COSInterfacePtr property = object.findProperty(vcos::COSNameID(lookedUp));
  // The property lives as long as its class.
  vcos::COSPropInfo* const info = vcos::COSPropInfoPtrHelper().getObject(property);
  if (!info) vxErrMsgId(component_VORTIL::catalog_vg::key_ChildModePropNotFound(given));
  return *info;
}

}  // namespace

bool prop_is_auto(vcos::COSInterface* object, const char* name) {
  const vcos::COSValue mode = requireProperty(*object, name, name).getValue(object);
  return !mode.isNull() && mode.asPointer<const AutoManual>()->isAuto();
}

void set_on_uddprop(vcos::COSInterface* object, const char* name, vcos::COSValue value) {
  std::string behind = name;
  if (!behind.ends_with("_I")) behind += "_I";
  requireProperty(*object, behind.c_str(), name).setValue(object, value);
}

}  // namespace graphics::datatype
