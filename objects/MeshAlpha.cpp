#include "NumberText.h"
#include "PropertyDataType.ipp"
#include "StyledJavaValues.h"
#include "TypeRegistration.h"

#include <graphics/datatype/MeshAlphaDataType.h>
#include <messages/catalog.h>
#include <vg/MatrixTraits.h>
#include <vx/errors.h>

#include <locale>
#include <sstream>

namespace graphics::datatype {

using vcos::COSValue;
namespace real = VORTIL::vg::dt_conv::Matrix_to_Real;

template <>
struct PropertyTypeTraits<MeshAlphaDataType> : PlainValues<MeshAlpha> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(MeshAlpha) == kBytes);
};
template class NamedDataType<MeshAlphaDataType>;
template class PropertyDataType<MeshAlphaDataType, MeshAlpha>;

MeshAlpha::MeshAlpha(double alpha) : MeshAlpha(kNumeric, alpha) {}

MeshAlpha::MeshAlpha(value style, double alpha) : style_(style), alpha_(alpha) {
  checkAlpha(alpha_);
}

void MeshAlpha::setAlpha(double alpha) {
  checkAlpha(alpha);
  alpha_ = alpha;
}

void MeshAlpha::checkAlpha(double alpha) {
  if (!(alpha >= 0 && alpha <= 1)) vxErrMsgId(real::ValueOutsideRange());
}

namespace {

/// The number that a stream reads from the beginning of a text; raises if it reads none.
double leadingNumber(const char* text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream.exceptions(std::ios::badbit);  // failed memory is no fault of the text
  double number = 0;
  if (!(stream >> number)) vxErrMsgId(real::ExpectedNumeric1());
  return number;
}

MeshAlpha alphaFromText(const char* text) {
  const auto style = styleNamed<MeshAlpha>(text);
  if (!style) return MeshAlpha(leadingNumber(text));
  // "alpha" itself is no value.
  if (style == MeshAlpha::kNumeric) vxErrMsgId(real::ExpectedNumeric1());
  return {*style, 1};
}

COSValue valueFromText(const char* text) {
  return COSValue::fromPointer(new MeshAlpha(alphaFromText(text)));
}

char* newText(const MeshAlpha& alpha) {
  return (NumberText<1>() << alpha.getAlpha()).newText();
}

vxArray* newArray(const MeshAlpha& alpha) {
  return vxCreateDoubleScalar(alpha.getAlpha());
}

}  // namespace

COSValue MeshAlphaSC::to(COSValue value) const {
  return textOf<MeshAlpha>(value, newText);
}

COSValue MeshAlphaSC::from(COSValue text) const {
  return text.isNull() ? text : valueFromText(text.asPointer<const char>());
}

COSValue MeshAlphaVC::to(COSValue value) const {
  return arrayOf<MeshAlpha>(value, newArray);
}

COSValue MeshAlphaVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto* const given = array.asPointer<const vxArray>();
  if (vxGetClassID(given) == vxCHAR_CLASS) {
    const HostText text(vxArrayToString(given));
    if (!text) throw vcos::COSOutOfMemoryException();
    return valueFromText(text.get());
  }
  if (!vxIsScalar(given) || !vg::isNumericClass(vxGetClassID(given)))
    vxErrMsgId(real::ExpectedNumeric());
  return COSValue::fromPointer(new MeshAlpha(vxGetScalar(given)));
}

namespace {

struct MeshAlphaInJava {
  using Value = MeshAlpha;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGAlpha"};
  static constexpr const char* kFile = "objects/MeshAlpha";
  static constexpr const char* kNullText = "Input parameter for MeshAlpha must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const MeshAlpha& alpha) {
    return alpha.getStyle() == MeshAlpha::kNumeric
               ? javaClass.create("(DI)V", alpha.getAlpha(), jint{0})
               : javaClass.create("(II)V", jint{alpha.getStyle()}, jint{0});
  }
  static COSValue fromJava(const JavaObject& object) {
    const auto style = styleIn<MeshAlpha>(object, "MeshAlpha");
    return style == MeshAlpha::kNumeric
               ? COSValue::fromPointer(new MeshAlpha(object.number("getAlpha")))
               : styledValue<MeshAlpha>(style);
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(MeshAlphaJC, MeshAlphaInJava)

VGDT_REGISTER_TYPE(MeshAlpha, init_VortilGraphicsDatatype_MeshAlphaDataType,
                   init_VortilGraphicsDatatype_MeshAlphaDataType_callback)

}  // namespace graphics::datatype
