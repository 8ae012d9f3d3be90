#pragma once

#include <graphics/datatype/ColorNameTable.h>
#include <gui_objects/Color.h>

#include <array>
#include <optional>
#include <string>

namespace vgdt {

/// Red, green and blue.
std::array<double, 3> channelsOf(const graphics::datatype::ColorNameTable::ColorValue& color);

/// "[1 0.5 0]".
std::string channelsText(const graphics::datatype::ColorNameTable::ColorValue& color);

/// The bytes that a colour is drawn with; none if one of its numbers is not from 0 to 1.
std::optional<gui_objects::Color4b> drawnBytes(
    const graphics::datatype::ColorNameTable::ColorValue& color);

/// "#ff8000".
std::string hexCode(const gui_objects::Color4b& bytes);

}  // namespace vgdt
