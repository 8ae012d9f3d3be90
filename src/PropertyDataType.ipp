#pragma once

/// The bodies of NamedDataType and PropertyDataType, for the unit that defines a type. That says
/// which size the type reports and how its values are made and compared, before it makes the
/// templates' members for it. A size that is not that of the value class has the word "kept" beside
/// it:
///
///     template <>
///     struct PropertyTypeTraits<Point2DataType> : PlainValues<gui_objects::Point2i> {
///       static constexpr std::size_t kBytes = 8;
///       static_assert(sizeof(gui_objects::Point2i) == kBytes);
///     };
///     template class NamedDataType<Point2DataType>;
///     template class PropertyDataType<Point2DataType, gui_objects::Point2i>;
///
/// A type that derives from NamedDataType alone says only the size, and makes only its members.

#include <graphics/datatype/PropertyDataType.h>

#include <string_view>
#include <utility>

namespace graphics::datatype {

template <class Type>
struct PropertyTypeTraits;

/// Values that are made with new, by default without arguments, and compared with ==. What a type
/// does in another way, its PropertyTypeTraits says itself.
template <class Value>
struct PlainValues {
  template <class... Arguments>
  static Value* create(Arguments&&... arguments) {
    return new Value{std::forward<Arguments>(arguments)...};
  }
  static Value* createDefault() { return create(); }
  static bool isEqual(const Value& a, const Value& b) { return a == b; }
};

namespace detail {

constexpr std::string_view kTypePrefix = "vortil.graphics.datatype.";

/// The last part of a dotted name.
constexpr const char* lastPart(const char* dottedName) {
  return dottedName + kTypePrefix.size();
}

template <class Value>
const Value* valueIn(vcos::COSValue word) {
  return word.asPointer<const Value>();
}

}  // namespace detail

template <class Type>
vcos::COSDataType* NamedDataType<Type>::getType() {
  static constinit Type* type = nullptr;
  if (!type) type = new Type;
  return type;
}

template <class Type>
const char* NamedDataType<Type>::getDataTypeName() {
  static_assert(std::string_view(Type::kDottedName).starts_with(detail::kTypePrefix));
  return Type::kDottedName;
}

template <class Type>
const char* NamedDataType<Type>::getDeclarationName() const {
  return detail::lastPart(Type::kDottedName);
}
template <class Type>
const char* NamedDataType<Type>::getName() const {
  return detail::lastPart(Type::kDottedName);
}
template <class Type>
const char* NamedDataType<Type>::getCategoryName() const {
  return "Fundamental";
}
template <class Type>
int NamedDataType<Type>::getStorageType() const {
  return 7;
}

template <class Type>
std::size_t NamedDataType<Type>::getSizeInBits() const {
  return 8 * PropertyTypeTraits<Type>::kBytes;
}
template <class Type>
std::size_t NamedDataType<Type>::getValueSizeInBytes(vcos::COSValue) const {
  return PropertyTypeTraits<Type>::kBytes;
}

template <class Type>
int NamedDataType<Type>::compare(vcos::COSValue a, vcos::COSValue b) const {
  return isEqual(a, b) ? 0 : 2;
}

template <class Type, class Value>
vcos::COSValue PropertyDataType<Type, Value>::getDefaultValue() const {
  static constinit vcos::COSValue defaultValue;
  if (defaultValue.isNull())
    defaultValue = vcos::COSValue::fromPointer(PropertyTypeTraits<Type>::createDefault());
  return defaultValue;
}

template <class Type, class Value>
bool PropertyDataType<Type, Value>::isEqual(vcos::COSValue a, vcos::COSValue b) const {
  if (a.isNull() || b.isNull()) return a == b;
  return PropertyTypeTraits<Type>::isEqual(*detail::valueIn<Value>(a), *detail::valueIn<Value>(b));
}

template <class Type, class Value>
vcos::COSValue PropertyDataType<Type, Value>::copy(vcos::COSValue value) const {
  if (value.isNull()) return value;
  return vcos::COSValue::fromPointer(
      PropertyTypeTraits<Type>::create(*detail::valueIn<Value>(value)));
}

template <class Type, class Value>
void PropertyDataType<Type, Value>::destroy(vcos::COSValue value) const {
  delete detail::valueIn<Value>(value);
}

}  // namespace graphics::datatype
