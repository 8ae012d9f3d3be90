#pragma once

/// What all enumerated types do alike, whatever their class.

#include "WordEnumeration.h"

#include <graphics/datatype/EnumStringType.h>
#include <vcos/COSDataType.h>
#include <vx/array.h>
#include <vx/scopes.h>

#include <memory>
#include <span>

namespace graphics::datatype {

/// A row of a table.
struct EnumeratedName {
  const char* name;
  int value;
};
using NameRows = std::span<const EnumeratedName>;

void addNames(EnumStringType& table, NameRows rows);

/// Takes a list over, fills it with new values of the type, one for each row, and hands it on.
vcos::Enumeration<vcos::COSValue> listValues(WordEnumeration* list, NameRows rows,
                                             const vcos::COSDataType& type,
                                             vcos::COSValue (*makeValue)(int enumerator));

/// The name of a value on the host's heap; null for null and for a value that has no name.
vcos::COSValue copyName(const EnumStringType& table, vcos::COSValue value);

/// The enumerator of the name that a text stands for. Raises key_InvalidEnumValue.
int requireEnumerator(const EnumStringType& table, const char* text, const char* typeName);

struct FreeText {
  void operator()(char* text) const noexcept { vxFreeEx(text); }
};
using ArrayText = std::unique_ptr<char, FreeText>;

/// The text of a char array with elements. Raises key_InvalidEnumValueFor, key_InvalidValue and
/// key_OutOfMemory.
ArrayText requireText(const vxArray* array, const char* typeName);

}  // namespace graphics::datatype
