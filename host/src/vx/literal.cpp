#include "ArrayHeader.h"
#include "text.h"

#include <messages/ustring.h>
#include <ut/unicode.h>
#include <vcos/COSClass.h>
#include <vx/element_types.h>
#include <vx/literal.h>
#include <vx/objects.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace vghost {
namespace {

/// The elements of a large array that are shown before the cut.
constexpr std::size_t kShownElements = 8;
/// A row of a text is not cut shorter than this.
constexpr std::size_t kLeastCharacters = 32;

bool isMatrix(const vxArray* array) {
  return vxGetNumberOfDimensions(array) == 2;
}

bool isZeroByZero(const vxArray* array) {
  return isMatrix(array) && vxGetM(array) == 0 && vxGetN(array) == 0;
}

/// Elements in storage order; `data` is the array's, of its real or its imaginary parts.
template <class T>
std::span<const T> elementsOf(const vxArray* array, const void* data) {
  return {static_cast<const T*>(data), vxGetNumberOfElements(array)};
}

std::string sizesText(const vxArray* array) {
  std::string text;
  for (const std::size_t size : array->dimensions)
    text.append(text.empty() ? "" : ",").append(std::to_string(size));
  return text;
}

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string all;
  for (const std::string& text : texts)
    all.append(&text == texts.data() ? "" : separator).append(text);
  return all;
}

std::string called(const std::string& function, const std::string& arguments) {
  return function + '(' + arguments + ')';
}

std::string reshaped(const vxArray* array, const std::string& text) {
  return called("reshape", text + ',' + sizesText(array));
}

std::string complexText(const std::string& real, const std::string& imaginary) {
  return called("complex", real + ',' + imaginary);
}

std::string countText(std::size_t count, std::string_view of) {
  return std::string("... ").append(std::to_string(count)).append(of);
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

/// Whether a person who is shown the characters in quotes sees them all. Half of a surrogate pair
/// has no UTF-8, and control characters are shown as escapes, which no literal has.
bool canBeQuoted(const fl::ustring& characters) {
  return std::ranges::none_of(characters, isControl) &&
         fl::i18n::to_ustring(fl::i18n::to_utf8(characters.data(), characters.size())) ==
             characters;
}

std::vector<fl::ustring> rowsOf(const vxArray* array) {
  const std::size_t rows = isMatrix(array) ? vxGetM(array) : 1;
  std::vector<fl::ustring> texts(rows);
  std::size_t index = 0;
  for (const vxChar character : textOf(array))
    texts[index++ % rows].push_back(character);
  return texts;
}

/// One part, real or imaginary, of an array that is not empty.
template <class T>
std::string partText(const vxArray* array, std::span<const T> elements) {
  const vxClassID classID = vxGetClassID(array);
  const bool isPlain = classID == vxDOUBLE_CLASS || classID == vxLOGICAL_CLASS;
  std::string text = bracketed(array, elements);
  if (!isPlain) text = called(vxGetClassName(array), text);
  return isMatrix(array) ? text : reshaped(array, text);
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
    return isComplex ? complexText(empty, empty) : empty;
  }
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) -> std::string {
    std::string real = partText(array, elementsOf<T>(array, vxGetData(array)));
    if (!isComplex) return real;
    return complexText(real, partText(array, elementsOf<T>(array, vxGetImagData(array))));
  });
}

constinit std::atomic<ObjectNaming> objectNaming = nullptr;

std::string nameOf(const vcos::COSInterface& object) {
  const ObjectNaming naming = objectNaming;
  return std::string(naming ? naming(object) : std::string_view());
}

class Printer {
 public:
  explicit Printer(std::size_t maxElements)
      : maxElements_(maxElements),
        maxCharacters_(std::max(maxElements, kLeastCharacters)) {}

  std::string print(const vxArray* array) const {
    if (!array) return "<null>";
    switch (vxGetClassID(array)) {
      case vxCELL_CLASS:
        return cells(array);
      case vxSTRUCT_CLASS:
        return structure(array);
      case vxFUNCTION_CLASS:
        return std::string("@") + vxGetFunctionName(array);
      case vxOBJECT_CLASS:
        return objects(array);
      case vxCHAR_CLASS:
        return characters(array);
      default:
        if (isTooLong(array)) return cutNumbers(array);
        return vxIsSparse(array) ? called("sparse", partsText(array)) : partsText(array);
    }
  }

  std::vector<std::string> printRows(const vxArray* array) const {
    std::vector<std::string> rows;
    if (array && isColumnOfTexts(array)) rows = cellTexts(array);
    if (array && vxGetClassID(array) == vxCHAR_CLASS && canBeRows(array)) rows = rowTexts(array);
    if (rows.size() < 2) return {print(array)};
    for (std::string& row : rows)
      row.insert(0, 1, ' ').push_back(';');
    const bool isCell = vxGetClassID(array) == vxCELL_CLASS;
    rows.front().front() = isCell ? '{' : '[';
    rows.back().back() = isCell ? '}' : ']';
    return rows;
  }

 private:
  bool isTooLong(const vxArray* array) const { return vxGetNumberOfElements(array) > maxElements_; }

  static std::string cutNumbers(const vxArray* array) {
    const std::size_t count = vxGetNumberOfElements(array);
    std::string text;
    withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
      const auto elements = elementsOf<T>(array, vxGetData(array));
      for (const T element : elements.first(std::min(count, kShownElements)))
        text += numberText(element) + ' ';
    });
    return '[' + text + countText(count, " elements]");
  }

  // --- texts -------------------------------------------------------------------------------------

  std::string characters(const vxArray* array) const {
    if (vxIsEmpty(array)) return emptyText(array);
    if (!canBeRows(array)) return partText<vxChar>(array, textOf(array));
    const std::vector<std::string> rows = rowTexts(array);
    const bool isOne = rows.size() == 1 && !isCutText(array);
    const std::string text = isOne ? rows.front() : '[' + joined(rows, "; ") + ']';
    return isMatrix(array) || isCutText(array) ? text : reshaped(array, text);
  }

  /// Rows and the characters in a row have a limit each.
  bool isCutText(const vxArray* array) const {
    const std::size_t rows = isMatrix(array) ? vxGetM(array) : 1;
    return rows > maxElements_ || vxGetNumberOfElements(array) / rows > maxCharacters_;
  }

  /// Of what is cut, nobody expects that it can be read back.
  bool canBeRows(const vxArray* array) const {
    return !vxIsEmpty(array) &&
           (isCutText(array) || std::ranges::all_of(rowsOf(array), canBeQuoted));
  }

  std::string rowText(const fl::ustring& row) const {
    if (row.size() <= maxCharacters_) return quoted(row);
    return quoted(row.substr(0, maxCharacters_)) + ' ' + countText(row.size(), " elements");
  }

  std::vector<std::string> rowTexts(const vxArray* array) const {
    std::vector<fl::ustring> rows = rowsOf(array);
    const std::size_t count = rows.size();
    if (count > maxElements_) rows.resize(std::min(count, kShownElements));
    std::vector<std::string> texts(rows.size());
    std::ranges::transform(rows, texts.begin(), [this](const auto& row) { return rowText(row); });
    if (count > maxElements_) texts.push_back(countText(count, " rows"));
    return texts;
  }

  // --- cells -------------------------------------------------------------------------------------

  static bool isColumnOfTexts(const vxArray* array) {
    if (vxGetClassID(array) != vxCELL_CLASS || !isMatrix(array) || vxGetN(array) != 1) return false;
    for (std::size_t i = 0; i < vxGetM(array); ++i)
      if (const vxArray* cell = vxGetCell(array, i); !cell || vxGetClassID(cell) != vxCHAR_CLASS)
        return false;
    return true;
  }

  /// One after the other.
  std::vector<std::string> cellTexts(const vxArray* array) const {
    const std::size_t count = vxGetNumberOfElements(array);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < (isTooLong(array) ? std::min(count, kShownElements) : count); ++i)
      texts.push_back(print(vxGetCell(array, i)));
    if (isTooLong(array)) texts.push_back(countText(count, " elements"));
    return texts;
  }

  std::string cells(const vxArray* array) const {
    const std::size_t count = vxGetNumberOfElements(array);
    if (isTooLong(array))
      return '{' + joined(cellTexts(array), vxGetN(array) == 1 ? "; " : ", ") + '}';
    std::size_t nulls = 0;
    for (std::size_t i = 0; i < count; ++i)
      nulls += vxGetCell(array, i) == nullptr ? 1 : 0;
    if (isZeroByZero(array)) return "{}";
    if (nulls == count) return called("cell", sizesText(array));
    const std::string text =
        '{' + rowsText(array, ", ", [&](std::size_t i) { return print(vxGetCell(array, i)); }) +
        '}';
    return isMatrix(array) ? text : reshaped(array, text);
  }

  std::string structure(const vxArray* array) const {
    if (!vxIsScalar(array)) return described(array);
    std::vector<std::string> fields(static_cast<std::size_t>(vxGetNumberOfFields(array)));
    for (int field = 0; std::string & text : fields) {
      text = std::string("'") + vxGetFieldNameByNumber(array, field) + "'," +
             print(vxGetFieldByNumber(array, 0, field));
      ++field;
    }
    return called("struct", joined(fields, ","));
  }

  std::string objects(const vxArray* array) const {
    const bool isOfHandle = std::string_view(vxGetClassName(array)) == "handle";
    if (vxIsEmpty(array) && isOfHandle)
      return isZeroByZero(array) ? "empty_handle" : reshaped(array, "empty_handle");
    if (vxIsEmpty(array) || isTooLong(array)) return described(array);
    const auto textAt = [array](std::size_t i) { return objectText(omGetArrayElement(array, i)); };
    if (vxIsScalar(array)) return textAt(0);
    const std::string text = '[' + rowsText(array, " ", textAt) + ']';
    return isMatrix(array) ? text : reshaped(array, text);
  }

  static std::string objectText(const vcos::COSInterfacePtr& object) {
    if (!object) return "<null>";
    std::string name = nameOf(*object.get());
    return name.empty() ? '<' + shownName(*object.get()) + '>' : name;
  }

  static std::string described(const vxArray* array) { return '<' + sizeAndClass(array) + '>'; }

  std::size_t maxElements_;
  std::size_t maxCharacters_;  ///< of a row
};

}  // namespace

void setObjectNaming(ObjectNaming naming) noexcept {
  objectNaming = naming;
}

std::string shownName(const vcos::COSInterface& object) {
  std::string name = nameOf(object);
  if (!name.empty()) return name;
  const vcos::COSClass* const itsClass = object.getClass();
  const std::string_view className = itsClass ? itsClass->getName() : "object";
  return std::string(className.substr(className.rfind('.') + 1));
}

std::string formatLiteral(const vxArray* array, std::size_t maxElements) {
  return Printer(maxElements).print(array);
}

std::vector<std::string> formatLiteralRows(const vxArray* array, std::size_t maxElements) {
  return Printer(maxElements).printRows(array);
}

std::string sizeAndClass(const vxArray* array) {
  return sizeText(array->dimensions.data(), array->dimensions.size()) + ' ' + vxGetClassName(array);
}

}  // namespace vghost
