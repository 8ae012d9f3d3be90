#pragma once

/// What has to hold of the rows of enumerated_types.def, checked when this is compiled.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace graphics::datatype::checks {

/// A row with all its columns.
struct CheckedRow {
  std::string_view owner;
  std::string_view label;
  std::string_view name;
  int value;
};

/// `RowsOf<Type>::kRows`, and the name in the closing row.
template <class TypeOrTable>
struct RowsOf;

/// Whether the column has no value twice.
template <std::size_t count, class Column>
constexpr bool isUnique(const CheckedRow (&rows)[count], Column CheckedRow::*column) {
  for (const CheckedRow* row = rows; row != std::end(rows); ++row)
    if (std::any_of(row + 1, std::end(rows),
                    [&](const CheckedRow& other) { return row->*column == other.*column; }))
      return false;
  return true;
}

template <std::size_t count>
constexpr bool areOwnedBy(std::string_view owner, const CheckedRow (&rows)[count]) {
  return std::ranges::all_of(rows, [owner](const CheckedRow& row) { return row.owner == owner; });
}

template <std::size_t count>
constexpr bool hasLabel(std::string_view label, const CheckedRow (&rows)[count]) {
  return std::ranges::find(rows, label, &CheckedRow::label) != std::end(rows);
}

/// What a user writes is lower-cased and trimmed, so a name has to be that already. Beyond ASCII
/// nobody can tell: it depends on the locale.
constexpr bool canBeEntered(std::string_view name) {
  constexpr auto isLowerAscii = [](char c) {
    return c >= ' ' && c <= '~' && !(c >= 'A' && c <= 'Z');
  };
  return !name.empty() && name.front() != ' ' && name.back() != ' ' &&
         std::ranges::all_of(name, isLowerAscii);
}

// clang-format off

#define VGDT_ENUM_TYPE(Type, Style, Default) \
  template <>                                \
  struct RowsOf<class Type> {                \
    static constexpr CheckedRow kRows[] = {
#define VGDT_ENUM_NAME(Type, Label, Name, Value) \
      {#Type, #Label, Name, Value},
#define VGDT_ENUM_END(Type)                         \
    };                                              \
    static constexpr std::string_view kEnd = #Type; \
  };
#define VGDT_ENUM_TABLE(Style) VGDT_ENUM_TYPE(Style, Style, )
#define VGDT_TABLE_NAME(Style, Label, Name, Value) VGDT_ENUM_NAME(Style, Label, Name, Value)
#define VGDT_TABLE_END(Style) VGDT_ENUM_END(Style)
#include <graphics/datatype/enumerated_types.def>

#define VGDT_CHECK(condition, message) static_assert(condition, "enumerated_types.def: " message);
#define VGDT_CHECK_ROWS(Type)                                                                 \
  VGDT_CHECK(areOwnedBy(#Type, RowsOf<Type>::kRows) && RowsOf<Type>::kEnd == #Type,           \
             "the rows from the opening to the closing one of " #Type " have to name " #Type) \
  VGDT_CHECK(isUnique(RowsOf<Type>::kRows, &CheckedRow::name),                                \
             "two rows of " #Type " have the same name; rename one")                          \
  VGDT_CHECK(isUnique(RowsOf<Type>::kRows, &CheckedRow::value),                               \
             "two rows of " #Type " have the same value; change one")                         \
  VGDT_CHECK(isUnique(RowsOf<Type>::kRows, &CheckedRow::label),                               \
             "two rows of " #Type " have the same label; change one")
#define VGDT_ENUM_TYPE(Type, Style, Default)                          \
  VGDT_CHECK_ROWS(Type)                                               \
  VGDT_CHECK(hasLabel(#Default, RowsOf<Type>::kRows),                 \
             "the default of " #Type " is not the label of one of its names: " #Default)
#define VGDT_ENUM_NAME(Type, Label, Name, Value)                       \
  VGDT_CHECK(canBeEntered(Name), "write the name '" Name "' of " #Type \
             " in lower case, in ASCII and without blanks around it")
#define VGDT_ENUM_TABLE(Style) VGDT_CHECK_ROWS(Style)
#define VGDT_TABLE_NAME(Style, Label, Name, Value) VGDT_ENUM_NAME(Style, Label, Name, Value)
#include <graphics/datatype/enumerated_types.def>

#define VGDT_ENUM_TYPE(Type, Style, Default) + 1
inline constexpr int kTypeCount = 0
#include <graphics/datatype/enumerated_types.def>
;
#define VGDT_ENUM_TABLE(Style) + 1
inline constexpr int kTableCount = 0
#include <graphics/datatype/enumerated_types.def>
;
VGDT_CHECK(kTypeCount == 46 && kTableCount == 4,
           "a type or a table came or went; change the numbers here, and the lists in the tests")
#undef VGDT_CHECK_ROWS
#undef VGDT_CHECK

// clang-format on

}  // namespace graphics::datatype::checks
