#pragma once

/// The rows of shaped_types.def as data, and what has to hold of them, checked when this is
/// compiled.

#include "ShapedVocabulary.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace graphics::datatype::shaped {

// clang-format off

/// The places of the types in kTypes.
enum class TypeIndex : std::size_t {
#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored) Type,
#include <graphics/datatype/shaped_types.def>
};

/// The places of a type's predicates.
#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored) enum class Type##Index : std::size_t {
#define VGDT_SHAPED_PREDICATE(Type, Name, Form, Size, Classes, Elements) Name,
#define VGDT_SHAPED_END(Type) };
#include <graphics/datatype/shaped_types.def>

namespace rows {

using namespace VORTIL::vg::shaped_arrays;
using enum WholeArrayRule;

#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored) \
  inline constexpr Predicate k##Type##Predicates[] = {
#define VGDT_SHAPED_PREDICATE(Type, Name, Form, Size, Classes, Elements) \
    predicate(#Name, Form, Size, Classes, Elements),
#define VGDT_SHAPED_END(Type) \
  };
#include <graphics/datatype/shaped_types.def>

inline constexpr ShapedType kTypes[] = {
#define VGDT_SHAPED_TYPE(Stem, Empty, Default, Storage, Stored)                           \
    {#Stem, Empty, k##Stem##Predicates, Default, Storage, Stored, newMessage<Stem##Size>, \
     newMessage<Stem##Type>},
#include <graphics/datatype/shaped_types.def>
};

}  // namespace rows

using rows::kTypes;

namespace checks {

using namespace rows;

/// What the columns say, with the names that have to agree.
struct CheckedRow {
  std::string_view owner;
  std::string_view name;
  ClassSet classes;
  Elements elements;
};

/// `RowsOf<TypeIndex::Type>::kRows`, and the name in the closing row.
template <TypeIndex type>
struct RowsOf;

template <std::size_t count>
constexpr bool areOwnedBy(std::string_view owner, const CheckedRow (&rows)[count]) {
  return std::ranges::all_of(rows, [owner](const CheckedRow& row) { return row.owner == owner; });
}

template <std::size_t count>
constexpr bool haveUniqueNames(const CheckedRow (&rows)[count]) {
  for (const CheckedRow* row = rows; row != std::end(rows); ++row)
    if (std::ranges::count(rows, row->name, &CheckedRow::name) != 1) return false;
  return true;
}

template <std::size_t count>
constexpr bool takeClass(vxClassID classID, const CheckedRow (&rows)[count]) {
  return std::ranges::any_of(
      rows, [classID](const CheckedRow& row) { return row.classes.contains(classID); });
}

/// "<type>Range" for a range, "<type>Predicate" for a rule.
constexpr bool hasOwnMessage(const CheckedRow& row) {
  std::string_view identifier = row.elements.ownIdentifier;
  if (identifier.empty()) return true;
  identifier.remove_prefix(std::min(identifier.size(), identifier.rfind(':') + 1));
  return identifier.starts_with(row.owner) &&
         identifier.substr(row.owner.size()) ==
             (row.elements.rule == WholeArrayRule::kNone ? "Range" : "Predicate");
}

/// Other ranges are tested element by element, which takes ten times as long: see ElementScan.cpp.
constexpr bool isScreened(const CheckedRow& row) {
  const ElementScan& scan = row.elements.scan;
  if (!scan.has(kRange)) return true;
  const bool hasIntegers = !(row.classes == kFloat || row.classes == kDouble || row.classes == kSingle);
  if (hasIntegers && !(scan.min == 1 && scan.max == kInfinity)) return false;
  return scan.min <= scan.max && (scan.min >= 0 || scan.min == -scan.max);
}

#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored) \
  template <>                                                   \
  struct RowsOf<TypeIndex::Type> {                              \
    static constexpr CheckedRow kRows[] = {
#define VGDT_SHAPED_PREDICATE(Type, Name, Form, Size, Classes, Elements) \
      {#Type, #Name, Classes, Elements},
#define VGDT_SHAPED_END(Type)                       \
    };                                              \
    static constexpr std::string_view kEnd = #Type; \
  };
#include <graphics/datatype/shaped_types.def>

#define VGDT_CHECK(condition, message) static_assert(condition, "shaped_types.def: " message);
#define VGDT_ROWS(Type) RowsOf<TypeIndex::Type>::kRows
#define VGDT_SHAPED_TYPE(Type, Empty, Default, Storage, Stored)                                 \
  VGDT_CHECK(areOwnedBy(#Type, VGDT_ROWS(Type)) && RowsOf<TypeIndex::Type>::kEnd == #Type,      \
             "the rows from the opening to the closing one of " #Type " have to name " #Type)   \
  VGDT_CHECK(haveUniqueNames(VGDT_ROWS(Type)),                                                  \
             "two predicates of " #Type " have the same name; rename one")                      \
  VGDT_CHECK(takeClass(Storage, VGDT_ROWS(Type)),                                               \
             "no predicate of " #Type " takes its storage class; a text could not be a value")  \
  VGDT_CHECK(std::ranges::all_of(VGDT_ROWS(Type), hasOwnMessage),                               \
             "a range of " #Type " wants the message " #Type "Range, a rule " #Type "Predicate") \
  VGDT_CHECK(std::ranges::all_of(VGDT_ROWS(Type), isScreened),                                  \
             "a range of " #Type " has to begin at 0 or above, or be as wide below 0 as above; "  \
             "with integer classes it has to be from 1 to kInfinity. Others need a screen first")
#include <graphics/datatype/shaped_types.def>
VGDT_CHECK(std::size(kTypes) == 33,
           "a type came or went; change the number here, and the lists in the tests")
#undef VGDT_ROWS
#undef VGDT_CHECK

}  // namespace checks

// clang-format on

}  // namespace graphics::datatype::shaped
