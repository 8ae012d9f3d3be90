#include "literal/LiteralPrinter.h"

#include "ArrayElements.h"
#include "text/NumberText.h"

#include <fmt/format.h>
#include <messages/ustring.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

namespace vgdt {
namespace {

/// The elements of a large array that are shown before the cut.
constexpr std::size_t kShownNumbers = 8;
constexpr std::size_t kShownCharacters = 32;

bool isMatrix(const vxArray* array) {
  return vxGetNumberOfDimensions(array) == 2;
}

bool isZeroByZero(const vxArray* array) {
  return isMatrix(array) && vxGetM(array) == 0 && vxGetN(array) == 0;
}

std::string sizesText(const vxArray* array) {
  return fmt::format("{}", fmt::join(dimensionsOf(array), ","));
}

std::string called(std::string_view function, std::string_view argument) {
  return fmt::format("{}({})", function, argument);
}

/// "a b; c d" from the texts of the elements; an array of more dimensions is written as one row.
template <class ElementText>
std::string rowsText(const vxArray* array, std::string_view separator, ElementText&& textAt) {
  const std::size_t rows = isMatrix(array) ? vxGetM(array) : 1;
  const std::size_t columns = vxGetNumberOfElements(array) / rows;
  std::string text;
  for (std::size_t row = 0; row < rows; ++row) {
    if (row != 0) text += "; ";
    for (std::size_t column = 0; column < columns; ++column) {
      if (column != 0) text += separator;
      text += textAt(column * rows + row);
    }
  }
  return text;
}

template <class T>
std::string bracketed(const vxArray* array, std::span<const T> elements) {
  const auto textAt = [elements](std::size_t i) { return numberText(elements[i]); };
  if (elements.size() == 1) return textAt(0);
  return '[' + rowsText(array, " ", textAt) + ']';
}

std::string quoted(const fl::ustring& characters) {
  std::string text = "'";
  for (const char c : fl::i18n::to_utf8(characters.data(), characters.size()))
    text.append(c == '\'' ? 2 : 1, c);
  return text + '\'';
}

/// Half of a surrogate pair has no UTF-8.
bool hasUtf8(const fl::ustring& characters) {
  return fl::i18n::to_ustring(fl::i18n::to_utf8(characters.data(), characters.size())) ==
         characters;
}

std::vector<fl::ustring> rowsOf(const vxArray* array) {
  const std::size_t rows = isMatrix(array) ? vxGetM(array) : 1;
  std::vector<fl::ustring> texts(rows);
  std::size_t index = 0;
  for (const vxChar character : elementsOf<vxChar>(array))
    texts[index++ % rows].push_back(character);
  return texts;
}

std::string charactersText(const vxArray* array) {
  const std::vector<fl::ustring> rows = rowsOf(array);
  if (!std::ranges::all_of(rows, hasUtf8))
    return called("char", bracketed(array, elementsOf<vxChar>(array)));
  if (rows.size() == 1) return quoted(rows.front());
  std::vector<std::string> texts;
  std::ranges::transform(rows, std::back_inserter(texts), quoted);
  return fmt::format("[{}]", fmt::join(texts, "; "));
}

/// One part, real or imaginary, of an array that is not empty.
template <class T>
std::string partText(const vxArray* array, std::span<const T> elements) {
  const vxClassID classID = vxGetClassID(array);
  const bool isText = classID == vxCHAR_CLASS;
  const bool isPlain = classID == vxDOUBLE_CLASS || classID == vxLOGICAL_CLASS;
  std::string text = isText ? charactersText(array) : bracketed(array, elements);
  if (!isText && !isPlain) text = called(vxGetClassName(array), text);
  return isMatrix(array) ? text : fmt::format("reshape({},{})", text, sizesText(array));
}

std::string emptyText(const vxArray* array) {
  const vxClassID classID = vxGetClassID(array);
  if (classID == vxCHAR_CLASS && isZeroByZero(array)) return "''";
  const std::string zeros = isZeroByZero(array) ? "[]" : called("zeros", sizesText(array));
  return classID == vxDOUBLE_CLASS ? zeros : called(vxGetClassName(array), zeros);
}

/// Both parts of a complex array, or the only one.
std::string partsText(const vxArray* array) {
  const bool isComplex = vxIsComplex(array);
  if (vxIsEmpty(array)) {
    const std::string empty = emptyText(array);
    return isComplex ? fmt::format("complex({0},{0})", empty) : empty;
  }
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) -> std::string {
    std::string real = partText(array, elementsOf<T>(array));
    if (!isComplex) return real;
    return fmt::format("complex({},{})", real, partText(array, imaginaryPartsOf<T>(array)));
  });
}

class Printer {
 public:
  explicit Printer(std::size_t maxElements) : maxElements_(maxElements) {}

  std::string print(const vxArray* array) const {
    if (!array) return "<null>";
    const bool isCut = vxGetNumberOfElements(array) > maxElements_;
    switch (vxGetClassID(array)) {
      case vxCELL_CLASS:
        return isCut ? cutCells(array) : cells(array);
      case vxSTRUCT_CLASS:
        return structure(array);
      case vxFUNCTION_CLASS:
        return fmt::format("@{}", vxGetFunctionName(array));
      case vxOBJECT_CLASS:
        return objects(array);
      default:
        if (isCut) return cutElements(array);
        return vxIsSparse(array) ? called("sparse", partsText(array)) : partsText(array);
    }
  }

 private:
  static std::string cutElements(const vxArray* array) {
    const std::size_t count = vxGetNumberOfElements(array);
    if (vxGetClassID(array) == vxCHAR_CLASS) {
      const auto characters = elementsOf<vxChar>(array);
      const auto shown = characters.first(std::min(count, kShownCharacters));
      return fmt::format("[{} ... {} elements]", quoted({shown.begin(), shown.end()}), count);
    }
    std::string text;
    withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
      const auto elements = elementsOf<T>(array);
      for (const T element : elements.first(std::min(count, kShownNumbers)))
        text += numberText(element) + ' ';
    });
    return fmt::format("[{}... {} elements]", text, count);
  }

  std::string cutCells(const vxArray* array) const {
    const std::size_t count = vxGetNumberOfElements(array);
    std::string text;
    for (std::size_t i = 0; i < std::min(count, kShownNumbers); ++i)
      text += print(vxGetCell(array, i)) + ", ";
    return fmt::format("{{{}... {} elements}}", text, count);
  }

  std::string cells(const vxArray* array) const {
    const std::size_t count = vxGetNumberOfElements(array);
    std::size_t nulls = 0;
    for (std::size_t i = 0; i < count; ++i)
      nulls += vxGetCell(array, i) == nullptr ? 1 : 0;
    if (isZeroByZero(array)) return "{}";
    if (nulls == count) return called("cell", sizesText(array));
    const std::string text =
        '{' + rowsText(array, ", ", [&](std::size_t i) { return print(vxGetCell(array, i)); }) +
        '}';
    return isMatrix(array) ? text : fmt::format("reshape({},{})", text, sizesText(array));
  }

  std::string structure(const vxArray* array) const {
    if (!vxIsScalar(array)) return described(array);
    std::vector<std::string> fields(static_cast<std::size_t>(vxGetNumberOfFields(array)));
    for (int field = 0; std::string & text : fields) {
      text = fmt::format("'{}',{}", vxGetFieldNameByNumber(array, field),
                         print(vxGetFieldByNumber(array, 0, field)));
      ++field;
    }
    return fmt::format("struct({})", fmt::join(fields, ","));
  }

  static std::string objects(const vxArray* array) {
    const bool isEmptyHandle =
        isZeroByZero(array) && std::string_view(vxGetClassName(array)) == "handle";
    return isEmptyHandle ? "empty_handle" : described(array);
  }

  static std::string described(const vxArray* array) {
    return fmt::format("<{}>", sizeAndClass(array));
  }

  std::size_t maxElements_;
};

}  // namespace

std::string formatLiteral(const vxArray* array, std::size_t maxElements) {
  return Printer(maxElements).print(array);
}

std::string sizeAndClass(const vxArray* array) {
  return fmt::format("{} {}", fmt::join(dimensionsOf(array), "x"), vxGetClassName(array));
}

}  // namespace vgdt
