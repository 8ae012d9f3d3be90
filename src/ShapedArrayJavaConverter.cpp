#include "ShapedArrayJavaConverter.h"

#include "JavaObjects.h"
#include "NewArray.h"

#include <graphics/datatype/ArrayBase.h>

#include <jni.h>

#include <map>

namespace graphics::datatype {

using vcos::COSValue;

namespace {

/// The line is part of a text that callers know.
constexpr Place kMissingClass("src/ShapedArrayJavaConverter", 84);

}  // namespace

vcos::JavaTypeConversion* ArrayBase::createJavaConverter(const vcos::COSDataType* type,
                                                         const char* typeName) {
  return ShapedArrayCustomJavaConverters::getConverter(*type, typeName);
}

vcos::JavaTypeConversion* ShapedArrayCustomJavaConverters::getConverter(
    const vcos::COSDataType& type, const char* typeName) {
  static TickJavaConverter tick;
  static LimitsWithInfsJavaConverter limitsWithInfs;
  static TickLengthJavaConverter tickLength;
  static DataBoundsJavaConverter dataBounds;
  static TextPositionJavaConverter textPosition;
  static ColorOrderJavaConverter colorOrder;
  static const std::map<std::string, vcos::JavaTypeConversion*> converters{
      {"Tick", &tick},
      {"LimitsWithInfs", &limitsWithInfs},
      {"TickLength", &tickLength},
      {"DataBounds", &dataBounds},
      {"TextPosition", &textPosition},
      {"ColorOrder", &colorOrder},
  };
  const auto custom = converters.find(type.getName());
  return custom == converters.end() ? new ShapedArrayJavaConverter(&type, typeName)
                                    : custom->second;
}

ShapedArrayJavaConverter::ShapedArrayJavaConverter(const vcos::COSDataType* type,
                                                   const char* typeName)
    : nativeTypeName_(type->getName()),
      typeName_(typeName) {}

const char* ShapedArrayJavaConverter::getJavaDeclarationName() {
  return kArrayReference.dotted;
}

COSValue ShapedArrayJavaConverter::to(COSValue value) const {
  auto* const arrayBase = value.asPointer<ArrayBase>();
  return hostArrayConversion().to(COSValue::fromPointer(arrayBase ? arrayBase->getPtr() : nullptr));
}

COSValue ShapedArrayJavaConverter::from(COSValue object) const {
  if (auto* const given = object.asPointer<_jobject>()) {
    const JavaClass javaClass(*this, kArrayReference, kMissingClass);
    if (!javaClass.java().IsInstanceOf(given, javaClass.get()))
      raiseJavaError(std::string("Input parameter is not an instance of ") +
                     kArrayReference.dotted);
  }
  const ArrayPtr array(hostArrayConversion().from(object).asPointer<vxArray>());
  const vcos::COSTypeConversion* conversion = arrayConversion_;
  if (!conversion) {
    conversion = &arrayConversionOf(typeName_.c_str());
    arrayConversion_ = conversion;
  }
  return conversion->from(COSValue::fromPointer(array.get()));
}

}  // namespace graphics::datatype
