#pragma once

#include <messages/ustring.h>

namespace gui_objects {

/// Unicode text in 16-bit units.
using UTF16String = fl::ustring;

}  // namespace gui_objects
