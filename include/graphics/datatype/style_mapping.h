#pragma once

#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/export.h>

namespace graphics::datatype {

/// What a drawing primitive calls the style that a user writes: "plus" for "+". A value that is
/// none of the type's gives "none".
///
///     const MarkerStyle style(MarkerStyle::kPlus);
///     convertMarkerStyleToPrimMarkerStyle(style).isPlus();  // true
VGDT_API PrimMarkerStyle convertMarkerStyleToPrimMarkerStyle(const MarkerStyle& style);

/// "dashed" for "--", and so on. A value that is none of the type's gives "solid".
VGDT_API PrimLineStyle convertLineStyleToPrimLineStyle(const LineStyle& style);

}  // namespace graphics::datatype
