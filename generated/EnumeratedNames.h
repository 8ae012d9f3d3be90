#pragma once

/// The names and values of each table as data, and what has to hold of the rows.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace graphics::datatype {

struct EnumeratedName {
  const char* name;
  int value;
  std::string_view label;  ///< of the enumerator and the test; empty in a table without a type
};

namespace detail {

constexpr bool isCapital(char c) {
  return c >= 'A' && c <= 'Z';
}

constexpr bool isLowerCase(std::string_view name) {
  return std::ranges::none_of(name, isCapital);
}

/// Whether the column has no value twice.
template <std::size_t count, class Column>
constexpr bool isUnique(const EnumeratedName (&rows)[count], Column column) {
  for (const EnumeratedName* row = rows; row != std::end(rows); ++row)
    if (std::any_of(row + 1, std::end(rows),
                    [&](const EnumeratedName& other) { return column(*row) == column(other); }))
      return false;
  return true;
}

template <std::size_t count>
constexpr bool hasUniqueNames(const EnumeratedName (&rows)[count]) {
  return isUnique(rows, [](const EnumeratedName& row) { return std::string_view(row.name); });
}

template <std::size_t count>
constexpr bool hasUniqueValues(const EnumeratedName (&rows)[count]) {
  return isUnique(rows, [](const EnumeratedName& row) { return row.value; });
}

template <std::size_t count>
constexpr bool hasUniqueLabels(const EnumeratedName (&rows)[count]) {
  return isUnique(rows, [](const EnumeratedName& row) { return row.label; });
}

template <std::size_t count>
constexpr bool hasLabel(const EnumeratedName (&rows)[count], std::string_view label) {
  return std::ranges::find(rows, label, &EnumeratedName::label) != std::end(rows);
}

}  // namespace detail

/// `NamesOf<Type>::kRows`, or with a table in the place of the type.
template <class TypeOrTable>
struct NamesOf;

// clang-format off

#define VGDT_ENUM_TYPE(Type, Style, Default) \
  template <>                                \
  struct NamesOf<class Type> {               \
    static constexpr EnumeratedName kRows[] = {
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
      {Name, Value, #Label},
#define VGDT_ENUM_END(Type) \
    };                      \
  };
#define VGDT_ENUM_TABLE(Style) VGDT_ENUM_TYPE(Style, Style, )
#define VGDT_TABLE_NAME(Style, Name, Value) VGDT_ENUM_NAME(Style, , Name, Value)
#define VGDT_TABLE_END(Style) VGDT_ENUM_END(Style)
#include "enumerated_types.def"

#define VGDT_CHECK(condition, message) static_assert(condition, "enumerated_types.def: " message);
#define VGDT_CHECK_NAMES(Type)                                       \
  VGDT_CHECK(detail::hasUniqueNames(NamesOf<Type>::kRows),           \
             "two rows of " #Type " have the same name; rename one") \
  VGDT_CHECK(detail::hasUniqueValues(NamesOf<Type>::kRows),          \
             "two rows of " #Type " have the same value; change one")
#define VGDT_ENUM_TYPE(Type, Style, Default)                          \
  VGDT_CHECK_NAMES(Type)                                              \
  VGDT_CHECK(detail::hasUniqueLabels(NamesOf<Type>::kRows),           \
             "two rows of " #Type " have the same label; change one") \
  VGDT_CHECK(detail::hasLabel(NamesOf<Type>::kRows, #Default),        \
             "the default of " #Type " is not the label of one of its names: " #Default)
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
  VGDT_CHECK(detail::isLowerCase(Name), "write the name " Name " of " #Type " in lower case")
#define VGDT_ENUM_TABLE(Style) VGDT_CHECK_NAMES(Style)
#define VGDT_TABLE_NAME(Style, Name, Value) VGDT_ENUM_NAME(Style, , Name, Value)
#include "enumerated_types.def"

#define VGDT_ENUM_TYPE(Type, Style, Default) + 1
inline constexpr int kEnumeratedTypeCount = 0
#include "enumerated_types.def"
;
VGDT_CHECK(kEnumeratedTypeCount == 46,
           "a type came or went; change this number, and the lists of types in the tests")
#undef VGDT_CHECK_NAMES
#undef VGDT_CHECK

// clang-format on

}  // namespace graphics::datatype
