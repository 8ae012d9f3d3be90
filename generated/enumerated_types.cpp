#include "EnumeratedChecks.h"
#include "EnumeratedNames.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"
#include "enumerated/EnumeratedSupport.h"

#include <graphics/datatype/enumerated_types.h>

namespace graphics::datatype {

/// All enumerated types report the size of their value class.
template <class Value>
struct EnumeratedTypeTraits : PlainValues<Value> {
  static constexpr std::size_t kBytes = 24;
  static_assert(sizeof(Value) == kBytes);
};

template <class Value>
vcos::COSValue newValue(int enumerator) {
  return vcos::COSValue::fromPointer(new Value(static_cast<typename Value::value>(enumerator)));
}

template <class DataType>
vcos::JavaTypeConversion* newJavaConversion(vcos::COSDataType& type, const char* dottedName) {
  return VGTypedEnumStringType::createJavaConverter(static_cast<const DataType*>(&type),
                                                    dottedName);
}

// clang-format off

// Classes of their own although they add nothing: every class of a type has its own name.
#define VGDT_ENUM_TYPE(Type, Style, Default)                 \
  class Type##Enumeration final : public WordEnumeration {}; \
  template <>                                                \
  struct PropertyTypeTraits<Type##DataType> : EnumeratedTypeTraits<Type> {};
#include <graphics/datatype/enumerated_types.def>

#define VGDT_DEFINE_TABLE(Style, TypeOrTable)                             \
  Style::Style() : EnumStringType(#Style, NamesOf<TypeOrTable>::kRows) {} \
  Style::~Style() = default;                                              \
  Style* Style::getInstance() {                                           \
    static Style* const instance = new Style;                             \
    return instance;                                                      \
  }
#define VGDT_ENUM_TYPE(Type, Style, Default) VGDT_DEFINE_TABLE(Style, Type)
#define VGDT_ENUM_TABLE(Style) VGDT_DEFINE_TABLE(Style, Style)
#include <graphics/datatype/enumerated_types.def>
#undef VGDT_DEFINE_TABLE

#define VGDT_ENUM_TYPE(Type, Style, Default)                                                     \
  Type::~Type() = default;                                                                       \
  template vcos::COSDataType* NamedDataType<Type##DataType>::getType();                          \
  template const char* NamedDataType<Type##DataType>::getDataTypeName();                         \
  Type##DataType::Type##DataType() = default;                                                    \
  Type##DataType::~Type##DataType() = default;                                                   \
  bool Type##DataType::isPossibleValuesFinite() const { return true; }                           \
  vcos::Enumeration<vcos::COSValue> Type##DataType::getPossibleValues() const {                  \
    return listValues(new Type##Enumeration, NamesOf<Type>::kRows, *this, newValue<Type>);       \
  }                                                                                              \
  Type##SC::~Type##SC() = default;                                                               \
  vcos::COSValue Type##SC::to(vcos::COSValue value) const { return copyName(dataType_, value); } \
  vcos::COSValue Type##SC::from(vcos::COSValue text) const {                                     \
    return valueFromText(dataType_, #Type, newValue<Type>, text);                                \
  }                                                                                              \
  Type##VC::~Type##VC() = default;                                                               \
  vcos::COSValue Type##VC::to(vcos::COSValue value) const {                                      \
    return vcos::COSValue::fromPointer(cache_.getVxArrayStringFor(value));                       \
  }                                                                                              \
  vcos::COSValue Type##VC::from(vcos::COSValue array) const {                                    \
    return valueFromArray(dataType_, #Type, newValue<Type>, array);                              \
  }                                                                                              \
  VGDT_REGISTER_TYPE_WITH(Type, newJavaConversion<Type##DataType>,                               \
                          init_GraphicsDatatype_##Type##DataType,                                \
                          init_GraphicsDatatype_##Type##DataType_callback)
#include <graphics/datatype/enumerated_types.def>

// clang-format on

}  // namespace graphics::datatype
