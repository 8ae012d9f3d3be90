#pragma once

#include <graphics/datatype/shaped_rules.h>
#include <vcos/TypeAccess.h>

#include <string>
#include <vector>

namespace vgdt {

/// A type under the name that users know it by.
struct Type {
  std::string name;
  vcos::TypeAccess access;
  bool isScalar;  ///< one of the host's own, which have only a text form

  /// The word holds the value itself and no pointer to it.
  bool isImmediate() const { return access.dataType().getStorageType() == 0; }
};

/// The types of the library's package, by name whatever the case.
std::vector<Type> libraryTypes();
std::vector<std::string> libraryTypeNames();

/// A type of the library by its short name, or else a scalar of the host's by its own. RequestError
/// if there is none of that name, or none that has a text form.
Type requireType(const std::string& name);

/// Whether its values are the names of a table.
bool isEnumerated(const Type& type);

/// The texts of the values of a finite type, in the type's order; empty for the others.
std::vector<std::string> possibleValueTexts(const Type& type);

/// The names of an enumerated type that begin with a text, whatever its case and the white space
/// around it: between two or more the text is ambiguous. Empty for the other types.
std::vector<std::string> namesAbbreviatedBy(const std::string& text, const Type& type);

/// The rules of a shaped array type; null for the other types.
const graphics::datatype::shaped::ShapedType* shapedRules(const Type& type);

}  // namespace vgdt
