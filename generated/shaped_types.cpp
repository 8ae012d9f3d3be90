#include "PropertyDataType.ipp"
#include "ShapedTable.h"
#include "TypeRegistration.h"
#include "shaped/Evaluator.h"
#include "shaped/ShapedConversions.h"

#include <graphics/datatype/shaped_types.h>

namespace graphics::datatype {

const shaped::ShapedType* shaped::findShapedType(std::string_view name) noexcept {
  const auto* type = std::ranges::find(kTypes, name, &ShapedType::name);
  return type == std::end(kTypes) ? nullptr : type;
}

namespace {

constexpr const shaped::ShapedType& typeAt(shaped::TypeIndex index) {
  return shaped::kTypes[static_cast<std::size_t>(index)];
}

template <class Value>
vcos::COSValue newValue(const vxArray* array) {
  return vcos::COSValue::fromPointer(array ? new Value(array) : new Value);
}

/// The default value is stated as text.
template <class Value>
Value* newDefault(const shaped::ShapedType& type) {
  const auto text = vcos::COSValue::fromPointer(type.defaultText);
  return shaped::valueFromText(type, text, newValue<Value>).template asPointer<Value>();
}

vcos::JavaTypeConversion* newJavaConversion(vcos::COSDataType& type, const char* dottedName) {
  return ArrayBase::createJavaConverter(&type, dottedName);
}

}  // namespace

// clang-format off

#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                                       \
  template <>                                                                                         \
  struct PropertyTypeTraits<Type##DataType> : PlainValues<Type> {                                     \
    static constexpr std::size_t kBytes = 8; /* kept: a pointer, although the object is larger */       \
    static Type* createDefault() { return newDefault<Type>(typeAt(shaped::TypeIndex::Type)); }        \
  };
#include <graphics/datatype/shaped_types.def>

#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                                \
  Type::Type(const vxArray* array) : ShapedValue(array, typeAt(shaped::TypeIndex::Type)) {}    \
  Type::~Type() = default;                                                                     \
  bool Type::isValid(const vxArray* array, shaped::MessagePtr& message) {                      \
    return shaped::isValid(typeAt(shaped::TypeIndex::Type), array, message);                   \
  }
#define VGDT_SHAPED_PREDICATE(Type, Name, Form, Size, Classes, Elements)                       \
  bool Type::Name(const vxArray* array, shaped::MessagePtr& message) {                         \
    constexpr const shaped::ShapedType& type = typeAt(shaped::TypeIndex::Type);                \
    constexpr auto index = static_cast<std::size_t>(shaped::Type##Index::Name);                \
    return shaped::holds(type, type.predicates[index], array, message);                        \
  }                                                                                            \
  bool Type::Name() const {                                                                    \
    shaped::MessagePtr message;                                                                \
    return Name(getPtr(), message);                                                            \
  }
#include <graphics/datatype/shaped_types.def>

#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                                \
  template vcos::COSDataType* NamedDataType<Type##DataType>::getType();                        \
  template const char* NamedDataType<Type##DataType>::getDataTypeName();                       \
  Type##DataType::~Type##DataType() = default;                                                 \
  bool Type##DataType::areNonStringValuesAllowed() const { return true; }                      \
  Type##SC::~Type##SC() = default;                                                             \
  vcos::COSValue Type##SC::to(vcos::COSValue value) const { return shaped::textOf(value); }    \
  vcos::COSValue Type##SC::from(vcos::COSValue text) const {                                   \
    return shaped::valueFromText(typeAt(shaped::TypeIndex::Type), text, newValue<Type>);       \
  }                                                                                            \
  Type##VC::~Type##VC() = default;                                                             \
  vcos::COSValue Type##VC::to(vcos::COSValue value) const {                                    \
    return shaped::arrayOf(typeAt(shaped::TypeIndex::Type), value);                            \
  }                                                                                            \
  vcos::COSValue Type##VC::from(vcos::COSValue array) const {                                  \
    return array.isNull() ? array : newValue<Type>(array.asPointer<const vxArray>());          \
  }                                                                                            \
  VGDT_REGISTER_TYPE_WITH(Type, newJavaConversion,                                             \
                          init_GraphicsDatatype_##Type##DataType,                              \
                          init_GraphicsDatatype_##Type##_callback)
#include <graphics/datatype/shaped_types.def>

// clang-format on

}  // namespace graphics::datatype
