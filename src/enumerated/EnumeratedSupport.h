#pragma once

/// What all enumerated types do alike, whatever their class.

#include "WordEnumeration.h"

#include <graphics/datatype/EnumStringType.h>
#include <vcos/COSDataType.h>

namespace graphics::datatype {

/// Makes a value of a type.
using MakeEnumerated = vcos::COSValue (*)(int enumerator);

/// Takes a list over, fills it with new values of the type, one for each row, and hands it on.
vcos::Enumeration<vcos::COSValue> listValues(WordEnumeration* list, NameRows rows,
                                             const vcos::COSDataType& type,
                                             MakeEnumerated makeValue);

/// The name of a value on the host's heap; null for null and for a value that has no name.
vcos::COSValue copyName(const EnumStringType& table, vcos::COSValue value);

/// The text conversion's `from`.
vcos::COSValue valueFromText(const EnumStringType& table, const char* typeName,
                             MakeEnumerated makeValue, vcos::COSValue text);

/// The array conversion's `from`.
vcos::COSValue valueFromArray(const EnumStringType& table, const char* typeName,
                              MakeEnumerated makeValue, vcos::COSValue array);

}  // namespace graphics::datatype
