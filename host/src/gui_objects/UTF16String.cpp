#include "../vx/text.h"

#include <gui_objects/UTF16String.h>
#include <ut/faults.h>

namespace gui_objects {

std::vector<UTF16String> createUTF16StringsFromArray(const vxArray* array) {
  vghost::faults::countHostCall("createUTF16StringsFromArray");
  std::vector<UTF16String> lines;
  if (array && vxGetClassID(array) == vxCELL_CLASS) {
    lines.resize(vxGetNumberOfElements(array));
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (const vxArray* element = vxGetCell(array, i)) lines[i] = vghost::textOf(element);
    return lines;
  }
  const auto text = vghost::textOf(array);
  if (text.empty()) return lines;
  const std::size_t rows = vxGetM(array);
  lines.resize(rows);
  for (std::size_t row = 0; row < rows; ++row) {
    lines[row].reserve(text.size() / rows);
    for (std::size_t i = row; i < text.size(); i += rows)
      lines[row] += text[i];
  }
  return lines;
}

UTF16String test::makeUTF16StringFromCharPtr(const char* text) {
  return fl::i18n::to_ustring(text ? text : "");
}

}  // namespace gui_objects
