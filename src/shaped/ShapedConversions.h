#pragma once

/// The conversions of the shaped array types, whatever their class.

#include <graphics/datatype/shaped_rules.h>
#include <vcos/COSValue.h>

namespace graphics::datatype::shaped {

/// Makes a value of a type from an array, or its empty value from null. Raises what the value
/// class's constructor does.
using NewValue = vcos::COSValue (*)(const vxArray* array);

/// The text conversion's `from`.
vcos::COSValue valueFromText(const ShapedType& type, vcos::COSValue text, NewValue newValue);

/// A text on the host's heap; null for null.
vcos::COSValue textOf(vcos::COSValue value);

/// An array of the caller's.
vcos::COSValue arrayOf(const ShapedType& type, vcos::COSValue value);

}  // namespace graphics::datatype::shaped
