#pragma once

/// What all shaped array types do alike, whatever their class.

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/shaped_rules.h>
#include <messages/BaseMsgID.h>
#include <vcos/COSValue.h>
#include <boost/shared_ptr.hpp>

namespace graphics::datatype::shaped {

using MessagePtr = boost::shared_ptr<resource_core::BaseMsgID>;

/// Whether an array can be a value of the type; `message` gets what ArrayBase::isValid() says.
bool isValid(const ShapedType& type, const vxArray* array, MessagePtr& message);

/// Whether one predicate of the type holds; if not, `message` gets the message of the last failure.
bool holds(const ShapedType& type, const Predicate& predicate, const vxArray* array,
           MessagePtr& message);

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
