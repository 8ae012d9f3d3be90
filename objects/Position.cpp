#include "JavaObjects.h"
#include "NewArray.h"
#include "NumericArrays.h"
#include "RoundOff.h"
#include "TypeRegistration.h"

#include <graphics/datatype/PositionDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/nearlyEqual.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace rectangle = VORTIL::vg::dt_conv::Matrix_to_vortilRect;

template <>
struct PropertyTypeTraits<PositionDataType>
    : GuardedValues<Position, gui_objects::RectangleCrossedPointsException,
                    VORTIL::vg::PositionDataType::InvalidPositionException> {
  static constexpr std::size_t kBytes = 32;
  static_assert(sizeof(Position) == kBytes);
  static bool isEqual(const Position& a, const Position& b) { return nearlyEqual(a, b); }
};
template class NamedDataType<PositionDataType>;
template class PropertyDataType<PositionDataType, Position>;

namespace {

using Values = PropertyTypeTraits<PositionDataType>;
using Errors =
    ArrayErrors<rectangle::ExpectedNumeric, rectangle::Expected4ElementVector,
                VORTIL::datatypes::positiondatatype::NullValue,
                component_VORTIL::component_vg::catalog_set_chck::key_DimensionsOutsideRange>;

bool isVectorOfFour(const vxArray* array) {
  return isMatrix<1, 4>(array) || isMatrix<4, 1>(array);
}

/// Fails unless the width and the height are 0 or more; unsigned classes need no test.
constexpr auto kRequireSize = [](const auto& elements) {
  using Element = std::remove_cvref_t<decltype(elements[0])>;
  if constexpr (std::is_signed_v<Element>)
    if (!(elements[2] >= 0 && elements[3] >= 0)) throw gui_objects::InvalidArrayDataException();
};

/// Reads the record.
struct ReadExecutor : RefuseOtherClasses {
  explicit ReadExecutor(position::ValidateExecutor& ownRecord) : record(ownRecord) {}

  template <class Traits>
  void run(const vxArray* array) {
    helpPositionArrayValidateExecutor<Traits>(array);
    const std::span elements(static_cast<const typename Traits::ElementType*>(vxGetData(array)), 4);
    // After the test of the size, so that a NaN there is a fault of the data.
    if (!FiniteNumbers()(elements)) throw gui_objects::InvalidArrayClassException();
    const auto number = [elements](std::size_t i) { return static_cast<double>(elements[i]); };
    record = {number(0), number(1), number(2), number(3)};
  }

  position::ValidateExecutor& record;
};

}  // namespace

template <class Traits>
void helpPositionArrayValidateExecutor(const vxArray* array) {
  ElementsExecutor<isVectorOfFour, 4, decltype(kRequireSize)>(kRequireSize)
      .template run<Traits>(array);
}
#define VGDT_INSTANTIATE(classID, Element)                                             \
  template VGDT_API void helpPositionArrayValidateExecutor<vg::MatrixTraits<classID>>( \
      const vxArray*);
VG_NUMERIC_CLASSES(VGDT_INSTANTIATE)
#undef VGDT_INSTANTIATE

void position::validateArray(ValidateExecutor& record, const vxArray* array) {
  ReadExecutor executor(record);
  Errors::duringWork([&] { dispatch<vg::TL::Numeric>(array, executor); });
}

bool operator==(const Position& a, const Position& b) noexcept {
  return a.getX() == b.getX() && a.getY() == b.getY() && a.getWidth() == b.getWidth() &&
         a.getHeight() == b.getHeight();
}

bool equalWithinRoundoffError(const Position& a, const Position& b) noexcept {
  return equalWithinRoundoff(a.getX(), b.getX()) && equalWithinRoundoff(a.getY(), b.getY()) &&
         equalWithinRoundoff(a.getWidth(), b.getWidth()) &&
         equalWithinRoundoff(a.getHeight(), b.getHeight());
}

bool nearlyEqual(const Position& a, const Position& b) noexcept {
  return gui_objects::nearlyEqual(a.asRectangle2d(), b.asRectangle2d());
}

COSValue PositionDataType::copy(COSValue value) const {
  return value.isNull() ? COSValue::fromPointer(Values::createDefault())
                        : PropertyDataType::copy(value);
}

COSValue PositionVC::to(COSValue value) const {
  return arrayOfValue<Position>(value, [](const Position& p) {
    return newMatrix<1>({p.getX(), p.getY(), p.getWidth(), p.getHeight()});
  });
}

COSValue PositionVC::from(COSValue array) const {
  if (array.isNull()) return array;
  position::ValidateExecutor record;
  position::validateArray(record, array.asPointer<const vxArray>());
  return COSValue::fromPointer(Values::create(record.x, record.y, record.width, record.height));
}

COSValue PositionSC::to(COSValue value) const {
  return textOfValue<Position>(value, "", [](const Position& p) {
    return newRowText({p.getX(), p.getY(), p.getWidth(), p.getHeight()});
  });
}

COSValue PositionSC::from(COSValue text) const {
  try {
    const auto [x, y, width, height] = convert::parse_1x4_double(text.asPointer<const char>());
    return COSValue::fromPointer(Values::create(x, y, width, height));
  } catch (const convert::ParseException&) {
    return COSValue::fromPointer(Values::createDefault());
  }
}

namespace {

struct PositionInJava {
  using Value = Position;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGRectangle"};
  static constexpr const char* kFile = "objects/Position";
  static constexpr const char* kNullText = "Input parameter for Position must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const Position& p) {
    return javaClass.create("(DDDD)V", p.getX(), p.getY(), p.getWidth(), p.getHeight());
  }
  static COSValue fromJava(const JavaObject& object) {
    const auto [x, y, width, height] = object.components<4>();
    return COSValue::fromPointer(Values::create(x, y, width, height));
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(PositionJC, PositionInJava)

VGDT_REGISTER_TYPE(Position, init_VortilGraphicsDatatype_PositionDataType,
                   init_VortilGraphicsDatatype_PositionDataType_callback)

}  // namespace graphics::datatype
