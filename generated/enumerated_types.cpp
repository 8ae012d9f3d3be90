#include "EnumeratedType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/enumerated_types.h>

namespace graphics::datatype {

EnumBase::~EnumBase() = default;

#define VGDT_ENUM_TYPE(Type, Style, Default)                 \
  class Type##Enumeration final : public WordEnumeration {}; \
  template <>                                                \
  struct EnumerationOf<Type> {                               \
    using Class = Type##Enumeration;                         \
  };                                                         \
  template <>                                                \
  struct PropertyTypeTraits<Type##DataType> : EnumeratedTypeTraits<Type> {};
#include "enumerated_types.def"

#define VGDT_DEFINE_TABLE(Style, Names)         \
  Style::Style() : EnumStringType(#Style) {     \
    addNames<Names>(*this);                     \
  }                                             \
  Style::~Style() = default;                    \
  Style* Style::getInstance() {                 \
    static constinit Style* instance = nullptr; \
    if (!instance) instance = new Style;        \
    return instance;                            \
  }
#define VGDT_ENUM_TYPE(Type, Style, Default) VGDT_DEFINE_TABLE(Style, Type)
#define VGDT_ENUM_TABLE(Style) VGDT_DEFINE_TABLE(Style, Style)
#include "enumerated_types.def"
#undef VGDT_DEFINE_TABLE

#define VGDT_ENUM_TYPE(Type, Style, Default)                      \
  template class PropertyDataType<Type##DataType, Type>;          \
  template class EnumeratedDataType<Type##DataType, Type, Style>; \
  template class EnumeratedSC<Type##DataType>;                    \
  template class EnumeratedVC<Type##DataType>;                    \
  Type::~Type() = default;                                        \
  Type##DataType::Type##DataType() = default;                     \
  Type##DataType::~Type##DataType() = default;                    \
  Type##SC::~Type##SC() = default;                                \
  Type##VC::~Type##VC() = default;                                \
  void init_GraphicsDatatype_##Type##DataType_callback() {        \
    registerEnumeratedType<Type##DataType, Type##VC, Type##SC>(); \
  }                                                               \
  VGDT_QUEUE_AT_LOAD(init_GraphicsDatatype_##Type##DataType,      \
                     init_GraphicsDatatype_##Type##DataType_callback)
#include "enumerated_types.def"

}  // namespace graphics::datatype
