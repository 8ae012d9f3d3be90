#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <vcos/COSDataType.h>
#include <vcos/COSTypeConversion.h>

#include <atomic>
#include <string>

namespace graphics::datatype {

/// Between the words of a shaped array type and references to host arrays,
/// com.lindgrove.jvi.types.VLArrayRef.
///
/// Errors: as AbstractJavaConverter; what the array conversion of the type raises.
class ShapedArrayJavaConverter final : public vcos::JavaTypeConversion, public JavaEnvironment {
 public:
  ShapedArrayJavaConverter(const vcos::COSDataType* type, const char* typeName);

  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
  const char* getNativeTypeName() const { return nativeTypeName_.c_str(); }

 private:
  std::string nativeTypeName_;
  std::string typeName_;
  mutable std::atomic<const vcos::COSTypeConversion*> arrayConversion_ = nullptr;
};

/// The shaped array types that have a Java form of their own.
namespace ShapedArrayCustomJavaConverters {

/// What ArrayBase::createJavaConverter() gives.
vcos::JavaTypeConversion* getConverter(const vcos::COSDataType& type, const char* typeName);

}  // namespace ShapedArrayCustomJavaConverters

// clang-format off

#define VGDT_CUSTOM_CONVERTER(Type)                                     \
  class Type##JavaConverter final : public AbstractJavaConverter {      \
   public:                                                              \
    vcos::COSValue to(vcos::COSValue value) const override;             \
    vcos::COSValue from(vcos::COSValue object) const override;          \
    const char* getJavaDeclarationName() override;                      \
  };
VGDT_CUSTOM_CONVERTER(ColorOrder)      ///< com.lindgrove.vlwidgets.inspector.types.ColorArray
VGDT_CUSTOM_CONVERTER(DataBounds)      ///< com.lindgrove.vg.types.VGPoint, by way of Point2d
VGDT_CUSTOM_CONVERTER(LimitsWithInfs)  ///< com.lindgrove.vg.types.VGPoint, by way of Point2d
VGDT_CUSTOM_CONVERTER(TextPosition)    ///< com.lindgrove.vg.types.VGPoint3, back by way of Point3
VGDT_CUSTOM_CONVERTER(Tick)            ///< double[]
VGDT_CUSTOM_CONVERTER(TickLength)      ///< double[]
#undef VGDT_CUSTOM_CONVERTER

// clang-format on

}  // namespace graphics::datatype
