#pragma once

#include <graphics/datatype/export.h>

namespace graphics::datatype {

/// Raises a host error with a literal identifier. `format` is a printf format, which may have a %s
/// for `argument` or do without.
///
///     vxErrMsgWrapper("datatypes:Tick:ParseException", "Invalid String", "Tick");
[[noreturn]] VGDT_API void vxErrMsgWrapper(const char* identifier, const char* format,
                                           const char* argument);

}  // namespace graphics::datatype
