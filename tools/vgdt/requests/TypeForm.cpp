#include "requests/TypeForm.h"

#include "requests/JsonForms.h"

namespace vgdt {

TypeForm typeForm(const Type& type) {
  const vcos::COSDataType& dataType = type.access.dataType();
  const vcos::COSValue defaultValue = dataType.getDefaultValue();
  const char* description = dataType.getPossibleValuesDescription();
  return {
      .name = type.name,
      .dottedName = type.access.name().c_str(),
      .declarationName = dataType.getDeclarationName(),
      .category = dataType.getCategoryName(),
      .storageType = dataType.getStorageType(),
      .sizeInBits = dataType.getSizeInBits(),
      .valueSizeInBytes = dataType.getValueSizeInBytes(defaultValue),
      .possibleValuesDescription =
          description ? std::optional<std::string>(description) : std::nullopt,
      .isFinite = dataType.isPossibleValuesFinite(),
      .possibleValues = possibleValueTexts(type),
      .defaultValue = valueForm(type, defaultValue),
  };
}

void writeType(JsonWriter& writer, const TypeForm& form) {
  const auto addText = [&writer](std::string_view name, std::string_view text) {
    writer.key(name);
    writer.text(text);
  };
  const auto addNumber = [&writer](std::string_view name, auto number) {
    writer.key(name);
    writer.number(number);
  };
  writer.openObject();
  addText("name", form.name);
  addText("dottedName", form.dottedName);
  addText("declarationName", form.declarationName);
  addText("category", form.category);
  addNumber("storageType", form.storageType);
  addNumber("sizeInBits", form.sizeInBits);
  addNumber("valueSizeInBytes", form.valueSizeInBytes);
  writer.key("possibleValuesDescription");
  if (form.possibleValuesDescription)
    writer.text(*form.possibleValuesDescription);
  else
    writer.null();
  addNumber("finite", form.isFinite);
  writer.key("possibleValues");
  writeTexts(writer, form.possibleValues);
  writer.key("default");
  writeValue(writer, form.defaultValue);
  writer.closeObject();
}

}  // namespace vgdt
