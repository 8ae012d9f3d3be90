#pragma once

#include "Types.h"
#include "requests/JsonForms.h"

namespace vgdt {

/// Everything the class system knows of a type, as the member "type" of a reply.
Json typeForm(const Type& type);

}  // namespace vgdt
