#include "requests/JsonForms.h"

#include "ArrayElements.h"

#include <messages/ustring.h>
#include <vx/objects.h>

#include <charconv>
#include <cmath>
#include <vector>

namespace vgdt {
namespace {

Json numberForm(double value) {
  constexpr double kIntegersEnd = 0x1p53;
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  const bool negativeZero = value == 0 && std::signbit(value);
  if (std::trunc(value) == value && std::abs(value) < kIntegersEnd && !negativeZero)
    return static_cast<std::int64_t>(value);
  return value;
}

/// With the digits that tell the value from its neighbours of single precision.
Json numberForm(float value) {
  if (!std::isfinite(value)) return numberForm(static_cast<double>(value));
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  double shortest = 0;
  std::from_chars(digits, end, shortest);
  return numberForm(shortest);
}

template <std::integral T>
Json numberForm(T value) {
  return value;
}

template <class T>
Json listOf(std::span<const T> elements) {
  Json::array_t list;
  list.reserve(elements.size());
  for (const T element : elements)
    list.push_back(numberForm(element));
  return list;
}

void addNumbers(const vxArray* array, Json& form) {
  withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    form["data"] = listOf(elementsOf<T>(array));
    if (vxIsComplex(array)) form["imag"] = listOf(imaginaryPartsOf<T>(array));
  });
  if (vxIsSparse(array)) form["sparse"] = true;
}

void addCharacters(const vxArray* array, Json& form) {
  const auto characters = elementsOf<vxChar>(array);
  if (vxGetNumberOfDimensions(array) != 2) {
    form["data"] = fl::i18n::to_utf8(characters.data(), characters.size());
    return;
  }
  const std::size_t rows = vxGetM(array);
  const std::size_t columns = vxGetN(array);
  Json& list = form["rows"] = Json::array();
  for (std::size_t row = 0; row < rows; ++row) {
    fl::ustring text;
    for (std::size_t column = 0; column < columns; ++column)
      text.push_back(characters[column * rows + row]);
    list.push_back(fl::i18n::to_utf8(text.data(), text.size()));
  }
}

void addCells(const vxArray* array, Json& form) {
  Json& list = form["data"] = Json::array();
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    list.push_back(jsonOf(vxGetCell(array, i)));
}

Json fieldsOf(const vxArray* array, std::size_t index) {
  Json::object_t fields;
  for (int field = 0; field < vxGetNumberOfFields(array); ++field)
    fields.emplace_back(vxGetFieldNameByNumber(array, field),
                        jsonOf(vxGetFieldByNumber(array, index, field)));
  return fields;
}

void addFields(const vxArray* array, Json& form) {
  if (vxIsScalar(array)) {
    form["fields"] = fieldsOf(array, 0);
    return;
  }
  Json& list = form["data"] = Json::array();
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    list.push_back(fieldsOf(array, i));
}

void addObjects(const vxArray* array, Json& form) {
  Json& list = form["data"] = Json::array();
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    list.push_back(omGetArrayElement(array, i) ? Json(vxGetClassName(array)) : Json());
}

}  // namespace

Json jsonOf(const vxArray* array) {
  if (!array) return nullptr;
  const auto dimensions = dimensionsOf(array);
  Json form{{"class", vxGetClassName(array)},
            {"dims", std::vector<std::size_t>(dimensions.begin(), dimensions.end())}};
  switch (vxGetClassID(array)) {
    case vxCHAR_CLASS:
      addCharacters(array, form);
      break;
    case vxCELL_CLASS:
      addCells(array, form);
      break;
    case vxSTRUCT_CLASS:
      addFields(array, form);
      break;
    case vxFUNCTION_CLASS:
      form["text"] = vxGetFunctionName(array);
      break;
    case vxOBJECT_CLASS:
      addObjects(array, form);
      break;
    default:
      addNumbers(array, form);
  }
  return form;
}

Json jsonOf(const Failure& failure) {
  return {{"kind", nameOf(failure.kind)}, {"id", failure.identifier}, {"message", failure.message}};
}

std::string dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace vgdt
