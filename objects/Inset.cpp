#include "NewArray.h"
#include "NumericArrays.h"
#include "RoundOff.h"
#include "TypeRegistration.h"

#include <graphics/datatype/InsetDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using gui_objects::Inset2d;
using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;

template <>
struct PropertyTypeTraits<InsetDataType>
    : GuardedValues<Inset2d, gui_objects::InvalidInsetException,
                    VORTIL::InsetDataType::InvalidInsetException> {
  static constexpr std::size_t kBytes = 32;
  static_assert(sizeof(Inset2d) == kBytes);
};
template class NamedDataType<InsetDataType>;
template class PropertyDataType<InsetDataType, Inset2d>;

namespace {

using Values = PropertyTypeTraits<InsetDataType>;

/// Kept: Position has the same two identifiers, with texts of its own.
struct ExpectedNumeric {
  static constexpr const char* kIdentifier =
      "VORTIL:vg:dt_conv:Matrix_to_vortilRect:ExpectedNumeric";
  static constexpr const char* kText = "Value must be numeric.";
};
struct Expected4ElementVector {
  static constexpr const char* kIdentifier =
      "VORTIL:vg:dt_conv:Matrix_to_vortilRect:Expected4ElementVector";
  static constexpr const char* kText = "Value must be a 4 element vector.";
};

using Reader = ArrayReader<double, 4, isMatrix<1, 4>, AnyNumbers,
                           ArrayErrors<ExpectedNumeric, Expected4ElementVector,
                                       VORTIL::datatypes::InsetDataType::ArrayNull>>;

}  // namespace

bool equalWithinRoundoffError(const Inset2d& a, const Inset2d& b) noexcept {
  return equalWithinRoundoff(a.getXMin(), b.getXMin()) &&
         equalWithinRoundoff(a.getXMax(), b.getXMax()) &&
         equalWithinRoundoff(a.getYMin(), b.getYMin()) &&
         equalWithinRoundoff(a.getYMax(), b.getYMax());
}

COSValue InsetVC::to(COSValue value) const {
  return arrayOfValue<Inset2d>(value, [](const Inset2d& i) {
    return newMatrix<1>({i.getXMin(), i.getYMin(), i.getXMax(), i.getYMax()});
  });
}

COSValue InsetVC::from(COSValue array) const {
  return valueFromArray<InsetDataType, Reader>(array);
}

COSValue InsetSC::to(COSValue array) const {
  return textFromArray<Reader>(array);
}

COSValue InsetSC::from(COSValue text) const {
  try {
    const auto [xMin, yMin, xMax, yMax] = convert::parse_1x4_double(text.asPointer<const char>());
    return COSValue::fromPointer(Values::create(xMin, yMin, xMax, yMax));
  } catch (const convert::ParseException&) {
    return COSValue::fromPointer(Values::createDefault());
  }
}

VGDT_REGISTER_TYPE(Inset, init_VortilGraphicsDatatype_InsetDataType,
                   init_VortilGraphicsDatatype_InsetDataType_callback)

}  // namespace graphics::datatype
