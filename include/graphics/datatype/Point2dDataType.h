#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Points.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Point2d": a point in the plane, (0, 0) by default. Its words point to a
/// gui_objects::Point2d:
///
///     const vcos::COSValue word = Point2dSC().from(vcos::COSValue::fromPointer("[0.5 1]"));
///     word.asPointer<gui_objects::Point2d>()->x;  // 0.5
///     Point2dDataType::getType()->destroy(word);
///
/// Values are compared exactly, but a value equals itself even if it is NaN.
class VGDT_API Point2dDataType final
    : public PropertyDataType<Point2dDataType, gui_objects::Point2d> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Point2d";
};

/// Between a C string and a word.
class VGDT_API Point2dSC final : public vcos::COSTypeConversion {
 public:
  /// Kept: the word is a host array, in the form that Point2dVC::to() gives, and no value. Gives
  /// "[0.5 1]" with six digits, elements of integer classes as integers, NaN and infinities
  /// as "nan" and "inf"; empty for null; to be freed with utFree.
  ///
  /// Errors: those of Point2dVC::from() for its class, its number of elements and an array without
  /// data.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes two numbers in brackets.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException for any other text and for
  /// null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API Point2dVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-2 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes two elements of any numeric class. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:datatypes:Point2dDataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:Point2dDataType:ArrayShape" for another number of elements,
  /// "VORTIL:datatypes:Point2dDataType:ArrayNull" for an array without data,
  /// "VORTIL:datatypes:Point2dDataType:ArrayData" for NaN and infinities.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGPoint and a word.
class VGDT_API Point2dJC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any numbers.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_Point2dDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_Point2dDataType_callback();

}  // namespace graphics::datatype
