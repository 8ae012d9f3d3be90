#pragma once

/// What the Java conversions of the types do alike whose value is numbers or a word of a table.

#include "JavaObjects.h"
#include "StyledValues.h"

#include <string>

namespace graphics::datatype {

[[noreturn]] inline void raiseInvalidStyle(const Place& place, const char* typeName,
                                           const std::string& style) {
  place.raise(std::string("Invalid style for ") + typeName + ": " + style, place.line);
}

/// The style that the Java object of a type says; raises if the type has none of that number.
template <class Value>
StyleOf<Value> styleIn(const JavaObject& object, const char* typeName,
                       int line = __builtin_LINE()) {
  const int number = object.integer({"getStyle", line});
  if (!Value::StyleTable::getInstance()->getEnumString(vcos::COSValue::fromInteger(number)))
    raiseInvalidStyle(object.javaClass().placeOf(line), typeName, std::to_string(number));
  return static_cast<StyleOf<Value>>(number);
}

/// A new value that is a style.
template <class Value>
vcos::COSValue styledValue(StyleOf<Value> style) {
  auto* const value = new Value;
  value->setStyle(style);
  return vcos::COSValue::fromPointer(value);
}

}  // namespace graphics::datatype
