#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Points.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Point2": a point in whole numbers, (0, 0) by default. Its words point to a
/// gui_objects::Point2i, and values are compared exactly:
///
///     const vcos::COSValue word = Point2SC().from(vcos::COSValue::fromPointer("[3 4]"));
///     word.asPointer<gui_objects::Point2i>()->x;  // 3
///     Point2DataType::getType()->destroy(word);
class VGDT_API Point2DataType final
    : public PropertyDataType<Point2DataType, gui_objects::Point2i> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Point2";
};

/// Between a C string and a word.
class VGDT_API Point2SC final : public vcos::COSTypeConversion {
 public:
  /// "[3 4]", and "[0 0]" for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes two numbers in brackets, as gui_objects::Point2d::asPoint2i() makes them whole.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException for any other text and for
  /// null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API Point2VC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-2 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes two elements of any numeric class. Fractions are cut off; of an integer the low 32 bits
  /// count; a number that is no `int`, also NaN, becomes the most negative one. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:datatypes:Point2DataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:Point2DataType:ArrayShape" for another number of elements,
  /// "VORTIL:datatypes:Point2DataType:ArrayNull" for an array without data.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class java.awt.Point and a word.
class VGDT_API Point2JC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Fractions are cut off, as by gui_objects::Point2d::asPoint2i().
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_Point2DataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_Point2DataType_callback();

}  // namespace graphics::datatype
