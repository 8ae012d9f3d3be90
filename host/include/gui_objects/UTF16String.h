#pragma once

#include <messages/ustring.h>
#include <ut/export.h>
#include <vx/array.h>

#include <vector>

namespace gui_objects {

/// Unicode text in 16-bit units.
using UTF16String = fl::ustring;

/// The lines of a text: one for each row of a char array, whose dimensions after the first count as
/// columns, and one for each element of a cell array; none of an empty array. Trailing blanks stay.
/// An element of several rows is one line, in storage order, and a null element an empty one.
///
/// Errors: "VORTIL:class:VORTILConversionError" for null, and for an array or an element that is
/// not of class char.
VGHOST_API std::vector<UTF16String> createUTF16StringsFromArray(const vxArray* array);

namespace test {

/// A UTF-8 text in 16-bit units; empty for null. What is broken in it becomes U+FFFD.
VGHOST_API UTF16String makeUTF16StringFromCharPtr(const char* text);

}  // namespace test
}  // namespace gui_objects
