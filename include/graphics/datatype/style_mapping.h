#pragma once

#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/export.h>

namespace graphics::datatype {

//     const PrimLineStyle primitive =
//     convertLineStyleToPrimLineStyle(LineStyle(LineStyle::kDotted)); primitive.isDotted();  //
//     true: ":" is "dotted" to a primitive

/// What a drawing primitive calls the style that a user writes: "plus" for "+". A value that is
/// none of the type's gives "none".
VGDT_API PrimMarkerStyle convertMarkerStyleToPrimMarkerStyle(const MarkerStyle& style);

/// "dashed" for "--", and so on. A value that is none of the type's gives "solid".
VGDT_API PrimLineStyle convertLineStyleToPrimLineStyle(const LineStyle& style);

}  // namespace graphics::datatype
