#include "FloatElements.h"
#include "JavaDetour.h"
#include "PropertyDataType.ipp"
#include "ShapedArrayJavaConverter.h"
#include "TextLines.h"
#include "TypeRegistration.h"

#include <graphics/datatype/NStringsDataType.h>
#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/Point3DataType.h>
#include <graphics/datatype/TextStringDataType.h>
#include <graphics/datatype/shaped_types.h>
#include <messages/catalog.h>
#include <vg/MatrixTraits.h>
#include <vx/errors.h>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <typeinfo>
#include <vector>

namespace graphics::datatype {

using resource_core::BaseMsgID;
using vcos::COSValue;

namespace {

namespace textMessages = VORTIL::vg::datatypes::TextStringDataType;
namespace numericOrTextMessages = VORTIL::vg::datatypes::NumericOrStringDataType;

using MessagePtr = boost::shared_ptr<BaseMsgID>;

/// What a test of an array finds: null if the array is valid.
using Fault = std::unique_ptr<BaseMsgID>;

ArrayPtr newTextRow(const char* characters) {
  return ArrayPtr(vxCreateString(characters ? characters : ""));
}

bool isEmptyOrMatrix(const vxArray* array) {
  return vxIsEmpty(array) || vxGetNumberOfDimensions(array) == 2;
}

bool isLine(const vxArray* element) {
  return !element || (vxGetClassID(element) == vxCHAR_CLASS && isEmptyOrMatrix(element));
}

bool isTextOrNumbers(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS || vg::isNumericClass(vxGetClassID(array));
}

template <class Holds>
bool areAllElements(const vxArray* cells, Holds&& holds) {
  for (std::size_t i = 0; i < vxGetNumberOfElements(cells); ++i)
    if (!holds(vxGetCell(cells, i))) return false;
  return true;
}

Fault faultOfText(const vxArray* array) {
  if (!array) return nullptr;
  const vxClassID classID = vxGetClassID(array);
  if (classID == vxCHAR_CLASS)
    return isEmptyOrMatrix(array) ? nullptr : std::make_unique<textMessages::IncorrectShape>();
  if (classID != vxCELL_CLASS) return std::make_unique<textMessages::ArrayClass>();
  if (vxIsEmpty(array)) return nullptr;
  if (vxGetNumberOfDimensions(array) != 2 || vxGetN(array) != 1)
    return std::make_unique<textMessages::IncorrectShape>();
  return areAllElements(array, isLine) ? nullptr
                                       : std::make_unique<textMessages::InvalidCellArray>();
}

Fault faultOfNumericOrText(const vxArray* array) {
  if (!array) return std::make_unique<numericOrTextMessages::ArrayClass>();
  if (isTextOrNumbers(array) || vxIsEmpty(array)) return nullptr;
  if (vxGetClassID(array) != vxCELL_CLASS)
    return std::make_unique<numericOrTextMessages::ArrayClass>();
  const auto holds = [](const vxArray* element) { return element && isTextOrNumbers(element); };
  return areAllElements(array, holds) ? nullptr
                                      : std::make_unique<numericOrTextMessages::InvalidCellArray>();
}

bool isValidOrTells(Fault fault, MessagePtr& message) {
  if (!fault) return true;
  message.reset(fault.release());
  return false;
}

/// The array itself, which has to be valid.
const vxArray* checked(const vxArray* array, Fault (*faultOf)(const vxArray* array)) {
  if (const Fault fault = faultOf(array)) vxErrMsgId(*fault);
  return array;
}

/// Whether a text makes its lines as the types of this library do.
bool hasOwnLines(const TextString& value) {
  return typeid(value) == typeid(TextString) || typeid(value) == typeid(NumericOrString);
}

}  // namespace

// --- the values ---------------------------------------------------------------------------------

TextString::TextString() : TextString("") {}
TextString::TextString(const char* characters) : ArrayBase(newTextRow(characters).get()) {}
TextString::TextString(const vxArray* array) : ArrayBase(array) {
  checked(array, faultOfText);
}
TextString::TextString(const TextString& other) = default;
TextString& TextString::operator=(const TextString& other) = default;
TextString::~TextString() = default;

bool TextString::isValid(const vxArray* array, MessagePtr& message) {
  return isValidOrTells(faultOfText(array), message);
}

std::vector<gui_objects::UTF16String> TextString::getUTF16String() const {
  if (isEmpty(getPtr())) return {};
  return gui_objects::createUTF16StringsFromArray(getPtr());
}

bool TextString::operator==(const TextString& other) const {
  if (hasOwnLines(*this) && hasOwnLines(other))
    if (const std::optional<bool> same = haveSameLines(getPtr(), other.getPtr())) return *same;
  return getUTF16String() == other.getUTF16String();
}

NumericOrString::NumericOrString() = default;
NumericOrString::NumericOrString(const char* characters) : TextString(characters) {}
NumericOrString::NumericOrString(const vxArray* array)
    : TextString(linesOf(checked(array, faultOfNumericOrText)).get()) {}
NumericOrString::NumericOrString(const NumericOrString& other) : TextString(other.getPtr()) {}
NumericOrString& NumericOrString::operator=(const NumericOrString& other) = default;
NumericOrString::~NumericOrString() = default;

bool NumericOrString::isValid(const vxArray* array, MessagePtr& message) {
  return !array || isValidOrTells(faultOfNumericOrText(array), message);
}

// --- the types ----------------------------------------------------------------------------------

namespace {

/// Kept: the copy of null is a new default value.
template <class Value>
COSValue copyOf(COSValue value) {
  return COSValue::fromPointer(value.isNull() ? new Value
                                              : new Value(*value.asPointer<const Value>()));
}

template <class Value>
COSValue valueFromText(COSValue text) {
  return COSValue::fromPointer(new Value(text.asPointer<const char>()));
}

template <class Value>
COSValue valueFromArray(COSValue array) {
  return COSValue::fromPointer(array.isNull() ? new Value
                                              : new Value(array.asPointer<const vxArray>()));
}

COSValue arrayOf(COSValue value) {
  const auto* const text = value.asPointer<const TextString>();
  ArrayPtr array = text ? text->getSharedDataCopy() : nullptr;
  return COSValue::fromPointer(array ? array.release() : vxCreateString(""));
}

}  // namespace

template <>
struct PropertyTypeTraits<TextStringDataType> : PlainValues<TextString> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(TextString) == kBytes);

  static bool isEqual(const TextString& a, const TextString& b) {
    try {
      return a == b;
    } catch (...) {
      vxErrMsgId(VORTIL::datatypes::TextStringDataType::isEqual());
    }
  }
};
template class NamedDataType<TextStringDataType>;
template class PropertyDataType<TextStringDataType, TextString>;

template <>
struct PropertyTypeTraits<NumericOrStringDataType> : PlainValues<NumericOrString> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(NumericOrString) == kBytes);

  static bool isEqual(const NumericOrString& a, const NumericOrString& b) {
    try {
      return a == b;
    } catch (...) {
      vxErrMsgIdAndTxt("VORTIL:graphics::datatype::NumericOrStringDataType::isEqual",
                       "Exception in NumericOrStringDataType::isEqual");
    }
  }
};
template class NamedDataType<NumericOrStringDataType>;
template class PropertyDataType<NumericOrStringDataType, NumericOrString>;

COSValue TextStringDataType::copy(COSValue value) const {
  return copyOf<TextString>(value);
}
COSValue TextStringSC::to(COSValue) const {
  return {};
}
COSValue TextStringSC::from(COSValue text) const {
  return valueFromText<TextString>(text);
}
COSValue TextStringVC::to(COSValue value) const {
  return arrayOf(value);
}
COSValue TextStringVC::from(COSValue array) const {
  return valueFromArray<TextString>(array);
}

COSValue NumericOrStringDataType::copy(COSValue value) const {
  return copyOf<NumericOrString>(value);
}
COSValue NumericOrStringSC::to(COSValue) const {
  return {};
}
COSValue NumericOrStringSC::from(COSValue text) const {
  return valueFromText<NumericOrString>(text);
}
COSValue NumericOrStringVC::to(COSValue value) const {
  return arrayOf(value);
}
COSValue NumericOrStringVC::from(COSValue array) const {
  return valueFromArray<NumericOrString>(array);
}

// --- Java ---------------------------------------------------------------------------------------

namespace {

const JavaDetour& byNStrings() {
  static const JavaDetour detour(NumericOrStringDataType::kDottedName,
                                 NStringsDataType::kDottedName);
  return detour;
}

const JavaDetour& byPoint3() {
  static const JavaDetour detour(TextPositionDataType::kDottedName, Point3DataType::kDottedName);
  return detour;
}

constexpr const char* kFile = "objects/TextDataTypesImpl";
constexpr JavaName kPoint3{"com.lindgrove.vg.types.VGPoint3"};

}  // namespace

COSValue NumericOrStringJC::to(COSValue value) const {
  return byNStrings().to(value);
}
COSValue NumericOrStringJC::from(COSValue object) const {
  return byNStrings().from(object);
}
const char* NumericOrStringJC::getJavaDeclarationName() {
  return "java.lang.String[]";
}

COSValue TextPositionJavaConverter::to(COSValue value) const {
  const Place place(kFile);
  const auto* const position = value.asPointer<const TextPosition>();
  if (!position)
    place.raise("NULL is not a valid value fot TextPosition");  // kept: the misspelling
  const vxArray* const array = position->getPtr();
  if (ArrayBase::isEmpty(array)) place.raise("Native array size cannot be 0");
  if (vxGetNumberOfElements(array) > 3) place.raise("Array size must be less than 3");
  if (vxGetClassID(array) != vxDOUBLE_CLASS) place.raise("Input data type must be double");
  std::vector<double> numbers = floatsOf(array);
  if (!std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); }))
    place.raise("Array element for TextPosition may not be NaN or Inf");
  numbers.resize(3);
  return COSValue::fromPointer(
      JavaClass(*this, kPoint3, place).create("(DDD)V", numbers[0], numbers[1], numbers[2]));
}

COSValue TextPositionJavaConverter::from(COSValue object) const {
  if (object.isNull()) Place(kFile).raise("Input parameter for text position must not be NULL ");
  return byPoint3().from(object);
}

const char* TextPositionJavaConverter::getJavaDeclarationName() {
  return kPoint3.dotted;
}

VGDT_REGISTER_TYPE(TextString, init_VortilGraphicsDatatype_TextStringDataType,
                   init_VortilGraphicsDatatype_TextStringDataType_callback)
VGDT_REGISTER_TYPE(NumericOrString, init_VortilGraphicsDatatype_NumericOrStringDataType,
                   init_VortilGraphicsDatatype_NumericOrStringDataType_callback)

}  // namespace graphics::datatype
