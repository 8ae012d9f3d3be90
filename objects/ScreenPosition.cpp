#include "NewArray.h"
#include "NumericArrays.h"
#include "TypeRegistration.h"

#include <graphics/datatype/PositionDataType.h>
#include <graphics/datatype/ScreenPositionDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::datatypes::screenposition;

template <>
struct PropertyTypeTraits<ScreenPositionDataType>
    : GuardedValues<ScreenPosition, gui_objects::RectangleCrossedPointsException,
                    VORTIL::vg::PositionDataType::InvalidScreenPositionException> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(ScreenPosition) == kBytes);
};
template class NamedDataType<ScreenPositionDataType>;
template class PropertyDataType<ScreenPositionDataType, ScreenPosition>;

namespace {

using Values = PropertyTypeTraits<ScreenPositionDataType>;
using Errors = ArrayErrors<messages::InvalidDataType, messages::InvalidFormat,
                           messages::NullDataPointer, messages::InvalidWidthAndHeight>;

struct TestExecutor : RefuseOtherClasses {
  template <class Traits>
  void run(const vxArray* array) {
    helpPositionArrayValidateExecutor<Traits>(array);
  }
};

/// Reads an array that validateArray() has passed, so its errors cannot be met; kept.
struct CopyExecutor {
  std::array<int, 4> numbers{};

  template <class Traits>
  void run(const vxArray* array) {
    const auto* const elements = static_cast<const typename Traits::ElementType*>(vxGetData(array));
    if (!elements) raise<messages::NullDataPointer>();
    std::transform(elements, elements + numbers.size(), numbers.begin(),
                   converted<int, typename Traits::ElementType>);
  }
  [[noreturn]] void onError(vxClassID) { raise<messages::InvalidDataType>(); }
};

}  // namespace

void screenposition::validateArray(const vxArray* array) {
  TestExecutor executor;
  Errors::duringWork([&] { dispatch<vg::TL::Integers>(array, executor); });
}

bool operator==(const ScreenPosition& a, const ScreenPosition& b) noexcept {
  return a.getX() == b.getX() && a.getY() == b.getY() && a.getWidth() == b.getWidth() &&
         a.getHeight() == b.getHeight();
}

bool nearlyEqual(const ScreenPosition& a, const ScreenPosition& b) noexcept {
  const auto& one = a.asRectangle2i();
  const auto& other = b.asRectangle2i();
  return one.getXMin() == other.getXMin() && one.getYMin() == other.getYMin() &&
         one.getXMax() == other.getXMax() && one.getYMax() == other.getYMax();
}

COSValue ScreenPositionVC::to(COSValue value) const {
  if (value.isNull()) return value;
  const auto& position = *value.asPointer<const ScreenPosition>();
  return COSValue::fromPointer(
      newMatrix<1>({position.getX(), position.getY(), position.getWidth(), position.getHeight()}));
}

COSValue ScreenPositionVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto* const given = array.asPointer<const vxArray>();
  screenposition::validateArray(given);
  CopyExecutor executor;
  dispatch<vg::TL::Integers>(given, executor);
  const auto [x, y, width, height] = executor.numbers;
  return COSValue::fromPointer(Values::create(x, y, width, height));
}

COSValue ScreenPositionSC::to(COSValue value) const {
  return textOfValue<ScreenPosition>(value, "", [](const ScreenPosition& p) {
    return newRowText({p.getX(), p.getY(), p.getWidth(), p.getHeight()});
  });
}

COSValue ScreenPositionSC::from(COSValue text) const {
  try {
    const auto [x, y, width, height] = convert::parse_1x4_double(text.asPointer<const char>());
    return COSValue::fromPointer(
        Values::create(truncated(x), truncated(y), truncated(width), truncated(height)));
  } catch (const convert::ParseException&) {
    return COSValue::fromPointer(Values::createDefault());
  }
}

VGDT_REGISTER_TYPE(ScreenPosition, init_VortilGraphicsDatatype_ScreenPositionDataType,
                   init_VortilGraphicsDatatype_ScreenPositionDataType_callback)

}  // namespace graphics::datatype
