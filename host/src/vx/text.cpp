#include "text.h"

#include "../messages/utf.h"
#include "ArrayHeader.h"

#include <messages/ustring.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vx/errors.h>

#include <algorithm>
#include <string_view>

using namespace vghost;
using vghost::faults::countHostCall;

namespace {

/// A row of `length` characters, 0 by 0 if there are none, for the caller to fill.
ArrayPtr createRow(std::size_t length) {
  const std::size_t dimensions[] = {length == 0 ? 0U : 1U, length};
  return createArray(vxCHAR_CLASS, dimensions, 2);
}

vxChar* charactersOf(vxArray* array) {
  return static_cast<vxChar*>(vxGetWritableData(array));
}

}  // namespace

std::basic_string_view<vxChar> vghost::textOf(const vxArray* array) {
  if (!array)
    vxErrMsgIdAndTxt("VORTIL:class:VORTILConversionError",
                     "Null has no text: give an array of class char.");
  if (array->classID != vxCHAR_CLASS)
    vxErrMsgIdAndTxt("VORTIL:class:VORTILConversionError",
                     "An array of class %s has no text: it has to be of class char.",
                     vxGetClassName(array));
  return {static_cast<const vxChar*>(vxGetData(array)), array->count()};
}

vxArray* vxCreateString(const char* text) {
  countHostCall("vxCreateString");
  const std::string_view utf8 = text ? text : "";
  ArrayPtr array = createRow(utf::utf16Length(utf8));
  utf::writeUtf16(utf8, charactersOf(array.get()));
  return array.release();
}

vxArray* vxCreateString_UTF16(const vxChar* text, std::size_t length) {
  countHostCall("vxCreateString_UTF16");
  ArrayPtr array = createRow(length);
  std::copy_n(text, length, charactersOf(array.get()));
  return array.release();
}

vxArray* vxCreateCharMatrixFromStrings(std::size_t rows, const char* const* texts) {
  countHostCall("vxCreateCharMatrixFromStrings");
  std::vector<fl::ustring> lines;
  std::size_t columns = 0;
  for (std::size_t row = 0; row < rows; ++row) {
    lines.push_back(fl::i18n::to_ustring(texts[row] ? texts[row] : ""));
    columns = std::max(columns, lines.back().size());
  }
  const std::size_t dimensions[] = {rows, columns};
  ArrayPtr array = createArray(vxCHAR_CLASS, dimensions, 2);
  vxChar* characters = charactersOf(array.get());
  for (std::size_t row = 0; row < rows; ++row)
    for (std::size_t column = 0; column < lines[row].size(); ++column)
      characters[column * rows + row] = lines[row][column];
  return array.release();
}

std::string vxArrayToStdString(const vxArray* array) {
  countHostCall("vxArrayToStdString");
  const auto text = textOf(array);
  return fl::i18n::to_utf8(text.data(), text.size());
}

char* vxArrayToString(const vxArray* array) {
  return vxCreateCStrFromArray(array, utMalloc);
}

char* vxCreateCStrFromArray(const vxArray* array, void* (*allocate)(std::size_t)) {
  countHostCall("vxCreateCStrFromArray");
  const auto text = textOf(array);
  const std::size_t size = utf::utf8Length(text.data(), text.size());
  auto* utf8 = static_cast<char*>(allocate(size + 1));
  if (!utf8) return nullptr;
  utf::writeUtf8(text.data(), text.size(), utf8);
  utf8[size] = '\0';
  return utf8;
}
