#include "NumericArrays.h"
#include "TypeRegistration.h"

#include <graphics/datatype/Matrix4x4DataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/nearlyEqual.h>
#include <gui_objects/objConvert.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using gui_objects::Matrix4x4d;
using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::datatypes::Matrix4x4DataType;

template <>
struct PropertyTypeTraits<Matrix4x4DataType> : PlainValues<Matrix4x4d> {
  static constexpr std::size_t kBytes = 128;
  static_assert(sizeof(Matrix4x4d) == kBytes);
  static bool isEqual(const Matrix4x4d& a, const Matrix4x4d& b) {
    return gui_objects::nearlyEqual(a, b);
  }
};
template class NamedDataType<Matrix4x4DataType>;
template class PropertyDataType<Matrix4x4DataType, Matrix4x4d>;

namespace {

using Values = PropertyTypeTraits<Matrix4x4DataType>;
using Errors = ArrayErrors<messages::ArrayClass, messages::ArrayShape, messages::ArrayNull>;

char* newMatrixText(const Matrix4x4d& matrix) {
  NumberText<16> text;
  for (int row = 1; row <= 4; ++row)
    for (int column = 1; column <= 4; ++column)
      text << (column > 1 ? " " : row > 1 ? ";" : "[") << matrix.get(row, column);
  return (text << "]").newText();
}

}  // namespace

COSValue Matrix4x4VC::to(COSValue value) const {
  Matrix4x4d matrix;
  if (!value.isNull()) matrix = *value.asPointer<const Matrix4x4d>();
  return COSValue::fromPointer(vg::objConvert::toVxArray(matrix));
}

COSValue Matrix4x4VC::from(COSValue array) const {
  Matrix4x4d matrix;
  if (!array.isNull())
    matrix = Errors::duringWork(
        [array] { return vg::objConvert::toMatrix4x4d(array.asPointer<const vxArray>()); });
  return COSValue::fromPointer(Values::create(matrix));
}

/// Kept: only the text of null has blanks behind the semicolons.
COSValue Matrix4x4SC::to(COSValue value) const {
  return textOfValue<Matrix4x4d>(value, "[1 0 0 0; 0 1 0 0; 0 0 1 0; 0 0 0 1]", newMatrixText);
}

COSValue Matrix4x4SC::from(COSValue text) const {
  return COSValue::fromPointer(
      Values::create(convert::parse_4x4_double(text.asPointer<const char>())));
}

VGDT_REGISTER_TYPE(Matrix4x4, init_VortilGraphicsDatatype_Matrix4x4DataType,
                   init_VortilGraphicsDatatype_Matrix4x4DataType_callback)

}  // namespace graphics::datatype
