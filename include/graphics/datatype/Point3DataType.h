#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Points.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Point3": a point in space, (0, 0, 0) by default. Its words point to a
/// gui_objects::Point3d:
///
///     const vcos::COSValue word = Point3SC().from(vcos::COSValue::fromPointer("[0 0.5 1]"));
///     word.asPointer<gui_objects::Point3d>()->y;  // 0.5
///     Point3DataType::getType()->destroy(word);
///
/// Values are compared exactly, but a value equals itself even if it is NaN.
class VGDT_API Point3DataType final
    : public PropertyDataType<Point3DataType, gui_objects::Point3d> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Point3";
};

/// Between a C string and a word.
class VGDT_API Point3SC final : public vcos::COSTypeConversion {
 public:
  /// Kept: the word is a host array, in the form that Point3VC::to() gives, and no value. Gives
  /// "[0 0.5 1]" with six digits, elements of integer classes as integers, NaN and infinities
  /// as "nan" and "inf"; empty for null; to be freed with utFree.
  ///
  /// Errors: those of Point3VC::from() for its class, its number of elements and an array without
  /// data; "VORTIL:datatypes:Point3DataType:UnknownException" for anything else, also for failed
  /// memory.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three numbers in brackets.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException for any other text and for
  /// null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API Point3VC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-3 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three elements of any numeric class. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:vg:set_chck:Expected3ElementVector" for another class and for
  /// another number of elements, "VORTIL:datatypes:Point3DataType:ArrayNull" for an array without
  /// data, "VORTIL:vg:set_chck:Matrix_to_3element_Vector_set_check_fcn:ExpectedFinite" for NaN and
  /// infinities.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGPoint3 and a word.
class VGDT_API Point3JC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any numbers.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_Point3DataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_Point3DataType_callback();

}  // namespace graphics::datatype
