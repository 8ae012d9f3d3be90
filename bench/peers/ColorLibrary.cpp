// The library's colours: a value of RGBAColor through its conversions, and the table of names.

#include "Library.h"
#include "colors.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/RGBAColorDataType.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>

#include <algorithm>

namespace peers {
namespace {

using graphics::datatype::ColorNameTable;
using graphics::datatype::RGBAColor;
using graphics::datatype::RGBAColorDataType;
using vcos::COSNameID;
using vcos::COSValue;

/// A value that its type destroys.
class Value {
 public:
  Value(const vcos::COSDataType& type, COSValue word) : type_(&type), word_(word) {}
  ~Value() { type_->destroy(word_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;

  Rgb rgb() const {
    const auto& color = *word_.asPointer<const RGBAColor>();
    return {color.getRed(), color.getGreen(), color.getBlue()};
  }

 private:
  const vcos::COSDataType* type_;
  COSValue word_;
};

void addConversion(const char* work, const ColorInput<const void*>& input, const char* outside) {
  const vcos::COSDataType& type = libraryType(RGBAColorDataType::kDottedName);
  const vcos::COSTypeConversion* conversion = vcos::COSTypeRepository::getConversion(
      COSNameID(outside), COSNameID(RGBAColorDataType::kDottedName));
  competeWithColor(
      work, kOurs, Goal::kNone, input,
      [&type, conversion](const void* given) {
        return Value(type, conversion->from(COSValue::fromPointer(given)));
      },
      [](const Value& value) { return value.rgb(); });
}

void addText(const char* work, const ColorInput<const char*>& input) {
  addConversion(work, {input.given, input.color}, "string");
}

void addArray() {
  static const vcos::ArrayOwner array(vxCreateDoubleMatrix(1, 3, vxREAL));
  constexpr double kChannels[] = {0.1, 0.2, 0.3};
  std::ranges::copy(kChannels, static_cast<double*>(vxGetWritableData(array.get())));
  addConversion(kColorFromArray, {array.get(), kColorNumbers.color}, "any");
}

void addLibraryColors() {
  const ColorNameTable* names = ColorNameTable::getInstance();
  competeWithColor(
      kColorLookUp, kOurs, Goal::kNone, kColorName,
      [names](const char* text) { return names->getColorValue(text); },
      [](const ColorNameTable::ColorValue& color) {
        return Rgb{color.red, color.green, color.blue};
      });
  addText(kColorFromName, kColorName);
  addText(kColorFromAbbreviation, kColorAbbreviation);
  addText(kColorFromNumbers, kColorNumbers);
  addArray();
}

[[maybe_unused]] const bool added = addContender(addLibraryColors);

}  // namespace
}  // namespace peers
