#pragma once

#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/RGBAColorDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/export.h>
#include <vcos/COSInterface.h>

namespace graphics::datatype {

// Filters run when a property of a graphics object has been set, and write what a drawing
// primitive takes to the properties behind the public ones, whose names end in "_I".
//
//     LineStyle style(LineStyle::kDashed);
//     filter_LineStyleToPrimLineStyle(line, style);  // "LineStyle_I" becomes "dashed"
//
// Errors: "VORTIL:vg:ChildModePropNotFound", with the name of the property that is missing, and
// whatever setting a property raises. What a filter has written before it fails stays written.

/// Sets "Style_I", of the type "PrimMarkerStyle".
VGDT_API void filter_MarkerStyleToPrimMarkerStyle(vcos::COSInterface* object,
                                                  const MarkerStyle& style);
/// Sets "LineStyle_I", of the type "PrimLineStyle".
VGDT_API void filter_LineStyleToPrimLineStyle(vcos::COSInterface* object, const LineStyle& style);

/// Sets "ColorData_I" to the four bytes of a colour, if "ColorDataMode" is automatic. The colour
/// "none" changes nothing.
VGDT_API void filter_RGBAColorToTextPrimitive(vcos::COSInterface* object, const RGBAColor* color);

/// Sets "ColorData_I", "ColorType_I" and "ColorBinding_I", in this order, if "ColorDataMode",
/// "ColorTypeMode" and "ColorBindingMode" are all automatic: the four bytes, "truecolor" (with an
/// alpha below 1 "truecoloralpha") and "object". "none" is black and wholly transparent.
VGDT_API void filter_RGBAColorToGeometryPrimitive(vcos::COSInterface* object,
                                                  const RGBAColor* color);

/// Sets "String_I", of the type "NumericOrString".
///
/// Errors: "VORTIL:vg:ChildPropNotFound" with "String" if the object has no such property.
VGDT_API void filter_NumericOrStringToTextPrimitive(vcos::COSInterface* object,
                                                    const NumericOrString& value);

}  // namespace graphics::datatype
