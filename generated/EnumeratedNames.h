#pragma once

/// The names and values of each table as data.

#include "enumerated/EnumeratedSupport.h"

namespace graphics::datatype {

/// `NamesOf<Type>::kRows`, or with a table in the place of the type. The classes are only named
/// here, so that their header is not needed.
template <class TypeOrTable>
struct NamesOf;

// clang-format off

#define VGDT_ENUM_TYPE(Type, Style, Default) \
  template <>                                \
  struct NamesOf<class Type> {               \
    static constexpr EnumeratedName kRows[] = {
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
      {Name, Value},
#define VGDT_ENUM_END(Type) \
    };                      \
  };
#define VGDT_ENUM_TABLE(Style) VGDT_ENUM_TYPE(Style, Style, )
#define VGDT_TABLE_NAME(Style, Label, Name, Value) VGDT_ENUM_NAME(Style, Label, Name, Value)
#define VGDT_TABLE_END(Style) VGDT_ENUM_END(Style)
#include <graphics/datatype/enumerated_types.def>

// clang-format on

}  // namespace graphics::datatype
