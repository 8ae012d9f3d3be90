#include "HostText.h"
#include "PropertyDataType.ipp"
#include "ShortNumber.h"
#include "TypeRegistration.h"

#include <graphics/datatype/MeshAlphaDataType.h>
#include <messages/catalog.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <array>
#include <locale>
#include <optional>
#include <sstream>

namespace graphics::datatype {

using vcos::COSValue;
namespace real = VORTIL::vg::dt_conv::Matrix_to_Real;

template <>
struct PropertyTypeTraits<MeshAlphaDataType> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(MeshAlpha) == kBytes);
  static MeshAlpha* createDefault() { return new MeshAlpha; }
};
template class NamedDataType<MeshAlphaDataType>;
template class PropertyDataType<MeshAlphaDataType, MeshAlpha>;

MeshAlpha::MeshAlpha(double alpha) : MeshAlpha(MeshAlphaStyle::kAlpha, alpha) {}

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

/// What a stream reads from the beginning of a text.
double leadingNumber(const char* text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream.exceptions(std::ios::badbit);  // failed memory is no fault of the text
  double number = 0;
  if (!(stream >> number)) vxErrMsgId(real::ExpectedNumeric1());
  return number;
}

MeshAlpha alphaFromText(const char* text) {
  const std::optional<COSValue> style = MeshAlphaStyle::getInstance()->findEnumValue(text);
  if (!style) return MeshAlpha(leadingNumber(text));
  const auto value = static_cast<MeshAlpha::value>(style->asInteger<int>());
  // The word that stands for a number is none.
  if (value == MeshAlphaStyle::kAlpha) vxErrMsgId(real::ExpectedNumeric1());
  return {value, 1};
}

COSValue valueFromText(const char* text) {
  return COSValue::fromPointer(new MeshAlpha(alphaFromText(text)));
}

const char* wordOf(const MeshAlpha& alpha) {
  return MeshAlphaStyle::getInstance()->getEnumString(COSValue::fromInteger(int{alpha.getStyle()}));
}

}  // namespace

COSValue MeshAlphaSC::to(COSValue value) const {
  if (value.isNull()) return value;
  const auto& alpha = *value.asPointer<const MeshAlpha>();
  if (!alpha.isAlpha()) return COSValue::fromPointer(copyText(wordOf(alpha)));
  std::array<char, kLongestShortNumber + 1> text;
  *writeShortNumber(text.data(), alpha.getAlpha()) = '\0';
  return COSValue::fromPointer(copyText(text.data()));
}

COSValue MeshAlphaSC::from(COSValue text) const {
  return text.isNull() ? text : valueFromText(text.asPointer<const char>());
}

COSValue MeshAlphaVC::to(COSValue value) const {
  if (value.isNull()) return COSValue::fromPointer(vxCreateDoubleMatrix(0, 0, vxREAL));
  const auto& alpha = *value.asPointer<const MeshAlpha>();
  return COSValue::fromPointer(alpha.isAlpha() ? vxCreateDoubleScalar(alpha.getAlpha())
                                               : vxCreateString(wordOf(alpha)));
}

COSValue MeshAlphaVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto* const given = array.asPointer<const vxArray>();
  if (vxGetClassID(given) == vxCHAR_CLASS) {
    const HostText text(vxArrayToString(given));
    if (!text) throw vcos::COSOutOfMemoryException();
    return valueFromText(text.get());
  }
  if (!vxIsScalar(given) || !vxIsNumeric(given)) vxErrMsgId(real::ExpectedNumeric());
  return COSValue::fromPointer(new MeshAlpha(vxGetScalar(given)));
}

VGDT_REGISTER_TYPE(MeshAlpha, init_VortilGraphicsDatatype_MeshAlphaDataType,
                   init_VortilGraphicsDatatype_MeshAlphaDataType_callback)

}  // namespace graphics::datatype
