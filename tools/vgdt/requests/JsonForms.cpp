#include "requests/JsonForms.h"

#include "ArrayElements.h"
#include "ObjectNames.h"

#include <vx/objects.h>

namespace vgdt {
namespace {

template <class T>
void writeNumbers(JsonWriter& writer, std::span<const T> elements) {
  writeList(writer, elements, [&writer](T element) { writer.number(element); });
}

void writeNumericMembers(JsonWriter& writer, const vxArray* array) {
  withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    writer.key("data");
    writeNumbers(writer, elementsOf<T>(array));
    if (!vxIsComplex(array)) return;
    writer.key("imag");
    writeNumbers(writer, imaginaryPartsOf<T>(array));
  });
  if (!vxIsSparse(array)) return;
  writer.key("sparse");
  writer.boolean(true);
}

void writeCharacters(JsonWriter& writer, const vxArray* array) {
  const auto characters = elementsOf<vxChar>(array);
  if (vxGetNumberOfDimensions(array) != 2) {
    writer.key("data");
    return writer.text(characters.data(), characters.size(), 1);
  }
  writer.key("rows");
  writer.openList();
  const std::size_t rows = vxGetM(array);
  for (std::size_t row = 0; row < rows; ++row)
    writer.text(characters.empty() ? nullptr : &characters[row], vxGetN(array), rows);
  writer.closeList();
}

/// The member "data" of an array, each element written by its number.
template <class Write>
void writeData(JsonWriter& writer, const vxArray* array, Write&& write) {
  writer.key("data");
  writer.openList();
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    write(i);
  writer.closeList();
}

void writeFields(JsonWriter& writer, const vxArray* array, std::size_t index) {
  writer.openObject();
  for (int field = 0; field < vxGetNumberOfFields(array); ++field) {
    writer.key(vxGetFieldNameByNumber(array, field));
    writeArray(writer, vxGetFieldByNumber(array, index, field));
  }
  writer.closeObject();
}

void writeStructs(JsonWriter& writer, const vxArray* array) {
  if (!vxIsScalar(array))
    return writeData(writer, array, [&](std::size_t i) { writeFields(writer, array, i); });
  writer.key("fields");
  writeFields(writer, array, 0);
}

void writeObjects(JsonWriter& writer, const vxArray* array) {
  writeData(writer, array, [&](std::size_t i) {
    if (const vcos::COSInterfacePtr object = omGetArrayElement(array, i))
      writer.text(shownName(*object.get()));
    else
      writer.null();
  });
}

void writeContent(JsonWriter& writer, const vxArray* array) {
  switch (vxGetClassID(array)) {
    case vxCHAR_CLASS:
      return writeCharacters(writer, array);
    case vxCELL_CLASS:
      return writeData(writer, array,
                       [&](std::size_t i) { writeArray(writer, vxGetCell(array, i)); });
    case vxSTRUCT_CLASS:
      return writeStructs(writer, array);
    case vxFUNCTION_CLASS:
      writer.key("text");
      return writer.text(vxGetFunctionName(array));
    case vxOBJECT_CLASS:
      return writeObjects(writer, array);
    default:
      return writeNumericMembers(writer, array);
  }
}

void writeError(JsonWriter& writer, const Failure& failure) {
  writer.openObject();
  writer.key("error");
  writeFailure(writer, failure);
  writer.closeObject();
}

void writeTextOrError(JsonWriter& writer, const std::optional<std::string>& text,
                      const std::optional<Failure>& failure) {
  if (failure) return writeError(writer, *failure);
  if (!text) return writer.null();
  writer.text(*text);
}

void writeArrayOrError(JsonWriter& writer, const vcos::ArrayOwner& array,
                       const std::optional<Failure>& failure) {
  if (failure) return writeError(writer, *failure);
  writeArray(writer, array.get());
}

}  // namespace

void writeTexts(JsonWriter& writer, const std::vector<std::string>& texts) {
  writeList(writer, texts, [&writer](const std::string& text) { writer.text(text); });
}

void writeArray(JsonWriter& writer, const vxArray* array) {
  if (!array) return writer.null();
  writer.openObject();
  writer.key("class");
  writer.text(vxGetClassName(array));
  writer.key("dims");
  writeNumbers(writer, dimensionsOf(array));
  writeContent(writer, array);
  writer.closeObject();
}

void writeFailure(JsonWriter& writer, const Failure& failure) {
  writer.openObject();
  writer.key("kind");
  writer.text(nameOf(failure.kind));
  writer.key("id");
  writer.text(failure.identifier);
  writer.key("message");
  writer.text(failure.message);
  writer.closeObject();
}

void writeMessage(JsonWriter& writer, std::string_view identifier, std::string_view message) {
  writer.openObject();
  writer.key("id");
  writer.text(identifier);
  writer.key("message");
  writer.text(message);
  writer.closeObject();
}

void writeText(JsonWriter& writer, const ValueForm& value) {
  writeTextOrError(writer, value.text, value.textFailure);
}

void writeValue(JsonWriter& writer, const ValueForm& value, std::string_view type) {
  writer.openObject();
  if (!type.empty()) {
    writer.key("type");
    writer.text(type);
  }
  writer.key("null");
  writer.boolean(value.isNull);
  if (!value.wordText.empty()) {
    writer.key("word");
    writer.text(value.wordText);
  }
  writer.key("text");
  writeText(writer, value);
  writer.key("array");
  writeArrayOrError(writer, value.array, value.arrayFailure);
  writer.closeObject();
}

void writeJava(JsonWriter& writer, const JavaForm& form) {
  if (form.failure) return writeError(writer, *form.failure);
  writer.openObject();
  writer.key("class");
  writeTextOrError(writer, form.className, std::nullopt);
  writer.key("text");
  writeTextOrError(writer, form.text, form.textFailure);
  writer.key("array");
  writeArrayOrError(writer, form.array, form.arrayFailure);
  writer.closeObject();
}

}  // namespace vgdt
