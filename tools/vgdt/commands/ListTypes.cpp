#include "commands/Commands.h"
#include "text/Table.h"
#include "text/TextDisplay.h"
#include "text/TypeWords.h"

#include <fmt/format.h>

#include <set>

namespace vgdt {
namespace {

std::vector<std::string> rowOf(const Type& type) {
  const vcos::COSDataType& dataType = type.access.dataType();
  const TypeWords words = wordsOf(type);
  return {type.name, words.family, onOneLine(defaultText(type), 20),
          std::to_string(dataType.getValueSizeInBytes(dataType.getDefaultValue())),
          onOneLine(words.inShort, 60)};
}

bool isFamily(const std::string& family, const std::vector<Type>& types, const Console& console) {
  std::set<std::string> known;
  for (const Type& type : types)
    known.insert(wordsOf(type).family);
  if (known.contains(family)) return true;
  reportProblem(console, fmt::format("there is no family \"{}\"; the families are {}",
                                     shortened(family), fmt::join(known, ", ")));
  return false;
}

}  // namespace

ExitStatus listTypes(const Console& console, const std::optional<std::string>& family,
                     bool asJson) {
  const std::vector<Type> types = libraryTypes();
  if (family && !isFamily(*family, types, console)) return kNotUnderstood;
  Table table({"name", "family", "default", "bytes", "values"});
  TypeNames names;
  for (const Type& type : types) {
    if (family && wordsOf(type).family != *family) continue;
    table.add(rowOf(type));
    names.push_back(type.name);
  }
  if (asJson) return printReply(console, {.answer = names});
  table.print(console.output);
  return kDone;
}

}  // namespace vgdt
