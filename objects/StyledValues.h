#pragma once

/// What the types do alike whose value is numbers or a word: the style of a value is an entry of
/// its table, Value::StyleTable, and Value::kNumeric is the style in which the numbers are the
/// value.

#include "HostText.h"

#include <vcos/COSValue.h>
#include <vx/array.h>

#include <optional>

namespace graphics::datatype {

template <class Value>
using StyleOf = typename Value::StyleTable::value;

/// The style that a text names; none if it names none, as most texts do.
template <class Value>
std::optional<StyleOf<Value>> styleNamed(const char* text) {
  const auto& styles = *Value::StyleTable::getInstance();
  if (!styles.mayStandForName(text)) return std::nullopt;
  const std::optional<vcos::COSValue> style = styles.findEnumValue(text);
  if (!style) return std::nullopt;
  return static_cast<StyleOf<Value>>(style->template asInteger<int>());
}

/// The word of a value's style; null for a number that is no style.
template <class Value>
const char* wordOf(const Value& value) {
  return Value::StyleTable::getInstance()->getEnumString(
      vcos::COSValue::fromInteger(int{value.getStyle()}));
}

/// The text of the value that a word points to: the word of its style or, if its numbers count,
/// what `newNumbers(value)` makes of them on the host's heap. Null for null.
template <class Value, class NewNumbers>
vcos::COSValue textOf(vcos::COSValue word, NewNumbers&& newNumbers) {
  if (word.isNull()) return word;
  const auto& value = *word.asPointer<const Value>();
  return vcos::COSValue::fromPointer(value.getStyle() == Value::kNumeric ? newNumbers(value)
                                                                         : copyText(wordOf(value)));
}

/// The same as a host array, which is an empty one for null.
template <class Value, class NewNumbers>
vcos::COSValue arrayOf(vcos::COSValue word, NewNumbers&& newNumbers) {
  if (word.isNull()) return vcos::COSValue::fromPointer(vxCreateDoubleMatrix(0, 0, vxREAL));
  const auto& value = *word.asPointer<const Value>();
  return vcos::COSValue::fromPointer(
      value.getStyle() == Value::kNumeric ? newNumbers(value) : vxCreateString(wordOf(value)));
}

}  // namespace graphics::datatype
