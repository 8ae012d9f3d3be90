#pragma once

#include <graphics/datatype/ColorNameTable.h>

#include <ostream>

namespace vgdt {

/// A page for a browser that shows the colours with their names, numbers and hex codes. It needs no
/// other file, follows the reader's choice of light or dark, and fits a narrow screen.
void writeColorPage(std::ostream& output,
                    const graphics::datatype::ColorNameTable::ColorMap& colors);

}  // namespace vgdt
