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
  lines.assign(rows, UTF16String(text.size() / rows, 0));
  for (std::size_t row = 0; row < rows; ++row)
    for (std::size_t i = row; vxChar & character : lines[row]) {
      character = text[i];
      i += rows;
    }
  return lines;
}

UTF16String test::makeUTF16StringFromCharPtr(const char* text) {
  return fl::i18n::to_ustring(text ? text : "");
}

}  // namespace gui_objects
