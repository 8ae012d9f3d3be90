// The library's colours: a value of RGBAColor through its conversions, and the table of names.

#include "Library.h"
#include "colors.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/RGBAColorDataType.h>

namespace peers {
namespace {

using graphics::datatype::ColorNameTable;
using graphics::datatype::RGBAColor;

template <class Given>
void addConversion(const char* work, const char* outside, const Task<Given, 3>& task) {
  competeByConversion<graphics::datatype::RGBAColorDataType>(
      work, outside, task, +[](const RGBAColor& color) {
        return Rgb{color.getRed(), color.getGreen(), color.getBlue()};
      });
}

void addLibraryColors() {
  const ColorNameTable* names = ColorNameTable::getInstance();
  competeInMaking(
      kColorLookUp, kOurs, Goal::kNone, kColorName,
      [names](const char* text) { return names->getColorValue(text); },
      [](const ColorNameTable::ColorValue& color) {
        return Rgb{color.red, color.green, color.blue};
      });
  addConversion(kColorFromName, "string", kColorName);
  addConversion(kColorFromAbbreviation, "string", kColorAbbreviation);
  addConversion(kColorFromNumbers, "string", kColorNumbers);
  static const vcos::ArrayOwner array = newArray(kColorNumbers.numbers);
  addConversion(kColorFromArray, "any",
                Task<const vxArray*, 3>{array.get(), kColorNumbers.numbers});
}

[[maybe_unused]] const bool added = addContender(addLibraryColors);

}  // namespace
}  // namespace peers
