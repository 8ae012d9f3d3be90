#pragma once

/// Values written as text. Numbers stand in brackets, separated by blanks or commas, with rows
/// separated by ";": "[1 0.5; -2e3 NaN]". "NaN", "Inf" and "-Inf" are the only words. Blanks are
/// free around brackets and separators. The locale of the process plays no part, and reading takes
/// linear time.
///
/// Integer classes saturate, and round fractions to the nearest integer (halves away from zero);
/// they read what is no integer of theirs as double. A number too close to zero for its class is
/// zero.
///
/// Errors: a ParseException for anything else, for rows of different lengths, for null, for NaN in
/// an integer class, and for a number that is too large for single or double, whichever it is read
/// as.

#include <gui_objects/BoundingVolume.h>
#include <gui_objects/Matrix4x4d.h>
#include <ut/export.h>
#include <vx/array.h>

#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace gui_objects::convert_from_string_utils {

/// A text could not be read. It carries nothing; whoever catches it raises the message.
class VGHOST_API ParseException {
 public:
  virtual ~ParseException();
};

/// Rows and columns of the text; 0 and 0 for "[]".
VGHOST_API std::pair<std::size_t, std::size_t> parse_array_dimensions(const char* text);

/// The text as a real array of one of the ten numeric classes, which belongs to the caller. The
/// text has to have that many rows and columns.
[[nodiscard]] VGHOST_API vxArray* parse_mxn(std::size_t rows, std::size_t columns,
                                            vxClassID classID, const char* text);

/// Exactly that many numbers in one row.
VGHOST_API std::array<double, 2> parse_1x2_double(const char* text);
VGHOST_API std::array<double, 3> parse_1x3_double(const char* text);
VGHOST_API std::array<double, 4> parse_1x4_double(const char* text);

/// The corners of a box, a row for each. Errors: an InvalidWidthException for corners that are no
/// minimum and maximum.
VGHOST_API BoundingVolume parse_2x3_double(const char* text);
VGHOST_API Matrix4x4d parse_4x4_double(const char* text);

/// One number, with or without brackets.
VGHOST_API double parse_double_scalar(const char* text);

/// Texts: "{'a', 'b'}" is an n by 1 cell array of strings, in which two quotes stand for one, and
/// which commas, semicolons or blanks separate. Null, "", "[]" and "{}" give null, and any other
/// text is itself as a char row. The array is the caller's.
[[nodiscard]] VGHOST_API vxArray* parse_strings(const char* text);

/// Reads a colour letter, a line style and a marker, in any order and each at most once: one of
/// r g b c m y k w; one of "-", "--", ":", "-."; and a name or symbol of a marker, or its first
/// letter. The longest word that fits is taken. False for any other text, which leaves the outputs
/// as they are; otherwise each is the part as it is spelled, or empty if the part is not there.
VGHOST_API bool stringToColorMarkerLineStyle(const char* text, std::string& color,
                                             std::string& line, std::string& marker);

}  // namespace gui_objects::convert_from_string_utils
