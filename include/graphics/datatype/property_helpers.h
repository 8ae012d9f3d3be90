#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSValue.h>

namespace graphics::datatype {

// How the filters reach properties of an object by name. What a property's own operation raises
// passes through.

/// Whether a mode property, which has to be of the type "AutoManual", holds "auto". Null does not.
///
///     if (prop_is_auto(object, "ColorDataMode")) set_on_uddprop(object, "ColorData", value);
///
/// Errors: "VORTIL:vg:ChildModePropNotFound" with the name if the object has no such property.
VGDT_API bool prop_is_auto(vcos::COSInterface* object, const char* name);

/// Sets the property that stands behind a public one: that of the name with "_I" behind it, unless
/// the name has two characters or more and ends so already. The value, a word of the type of that
/// property, is copied and stays the caller's.
///
/// Errors: "VORTIL:vg:ChildModePropNotFound" with the name as it was given if the object has no
/// such property.
VGDT_API void set_on_uddprop(vcos::COSInterface* object, const char* name, vcos::COSValue value);

}  // namespace graphics::datatype
