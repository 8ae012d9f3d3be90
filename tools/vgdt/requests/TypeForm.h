#pragma once

#include "Types.h"
#include "Values.h"
#include "requests/JsonWriter.h"

#include <optional>
#include <string>
#include <vector>

namespace vgdt {

/// Everything the class system knows of a type.
struct TypeForm {
  std::string name;
  std::string dottedName;
  std::string declarationName;
  std::string category;
  int storageType;
  std::size_t sizeInBits;
  std::size_t valueSizeInBytes;
  std::optional<std::string> possibleValuesDescription;
  bool isFinite;
  std::vector<std::string> possibleValues;
  ValueForm defaultValue;
};
TypeForm typeForm(const Type& type);

/// As the member "type" of a reply.
void writeType(JsonWriter& writer, const TypeForm& form);

}  // namespace vgdt
