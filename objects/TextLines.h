#pragma once

/// The lines of texts in host arrays: char arrays with a row for each, and cell arrays with an
/// element for each.

#include "NewArray.h"

#include <vx/array.h>

#include <optional>

namespace graphics::datatype {

/// A char or cell array that is made of numbers and texts. Numbers and what stands between line
/// feeds become lines: the rows of a char array, blanks behind the shorter ones, or the elements of
/// a column cell array. The elements of an array that has neither are shared, with the dimensions
/// after the first of a char array made one.
///
/// The array, or each of its elements if it is a cell array, has to be of class char or numeric; an
/// empty one may be of any class.
ArrayPtr linesOf(const vxArray* array);

/// Whether two char or cell arrays have the same lines. None if that depends on what the host makes
/// of trailing blanks, of elements with several rows, or of null elements.
std::optional<bool> haveSameLines(const vxArray* a, const vxArray* b);

}  // namespace graphics::datatype
