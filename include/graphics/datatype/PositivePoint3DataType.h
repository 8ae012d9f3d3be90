#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Points.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "PositivePoint3": a point in space, or three lengths, each above 0; (1, 1, 1) by
/// default. Its words point to a gui_objects::Point3d. Kept: only the array conversion asks for
/// positive numbers.
///
///     const vcos::COSValue text = vcos::COSValue::fromPointer("[2 2 0.5]");
///     const vcos::COSValue word = PositivePoint3SC().from(text);
///     word.asPointer<gui_objects::Point3d>()->z;  // 0.5
///     PositivePoint3DataType::getType()->destroy(word);
///
/// Values are compared exactly, but a value equals itself even if it is NaN.
class VGDT_API PositivePoint3DataType final
    : public PropertyDataType<PositivePoint3DataType, gui_objects::Point3d> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.PositivePoint3";
};

/// Between a C string and a word.
class VGDT_API PositivePoint3SC final : public vcos::COSTypeConversion {
 public:
  /// As Point3SC::to(), with its errors.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any three numbers in brackets. Any other text, and null, gives null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API PositivePoint3VC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-3 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three elements of any numeric class, each above 0. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:vg:set_chck:Expected3ElementVector" for another class and for
  /// another number of elements, "VORTIL:datatypes:Point3DataType:ArrayNull" for an array without
  /// data, "VORTIL:datatypes:PositivePoint3DataType:ExpectedFinitePositive" for NaN,
  /// infinities, and numbers that are not above 0.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGPoint3 and a word.
class VGDT_API PositivePoint3JC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any numbers: kept, the value class tests none.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_PositivePoint3DataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_PositivePoint3DataType_callback();

}  // namespace graphics::datatype
