#pragma once

#include <ut/export.h>

namespace gui_objects::convert_from_string_utils {

/// A text could not be read. It carries nothing; whoever catches it gives the message.
class VGHOST_API ParseException {
 public:
  virtual ~ParseException();
};

}  // namespace gui_objects::convert_from_string_utils
