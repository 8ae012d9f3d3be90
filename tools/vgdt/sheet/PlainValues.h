#pragma once

#include "sheet/JsonCursor.h"

#include <vcos/TypeAccess.h>

namespace vgdt {

/// Makes host arrays of plain JSON values.
class PlainValues {
 public:
  /// The array of the value that begins at the cursor, which must be no object: a char row, a
  /// number, a logical, [] of null, a row of numbers, a matrix of rows, a column of cells of texts.
  /// A number that is out of range is an infinity or 0.
  ///
  /// RequestError for a list of any other kind. The cursor then stays where it is.
  vcos::ArrayOwner read(JsonCursor& value);

 private:
  vcos::ArrayOwner readText(JsonCursor& value);
  vcos::ArrayOwner readList(JsonCursor& value);

  fl::ustring characters_;  // used again and again
};

}  // namespace vgdt
