#include "requests/TypeForm.h"

#include "Values.h"

namespace vgdt {

Json typeForm(const Type& type) {
  const vcos::COSDataType& dataType = type.access.dataType();
  const vcos::COSValue defaultValue = dataType.getDefaultValue();
  const char* description = dataType.getPossibleValuesDescription();
  Json form;
  form["name"] = type.name;
  form["dottedName"] = type.access.name().c_str();
  form["declarationName"] = dataType.getDeclarationName();
  form["category"] = dataType.getCategoryName();
  form["storageType"] = dataType.getStorageType();
  form["sizeInBits"] = dataType.getSizeInBits();
  form["valueSizeInBytes"] = dataType.getValueSizeInBytes(defaultValue);
  form["possibleValuesDescription"] = description ? Json(description) : Json();
  form["finite"] = dataType.isPossibleValuesFinite();
  form["possibleValues"] = possibleValueTexts(type);
  form["default"] = valueForm(type, defaultValue);
  return form;
}

}  // namespace vgdt
