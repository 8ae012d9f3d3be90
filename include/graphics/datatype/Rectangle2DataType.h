#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Rectangles.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Rectangle2": a rectangle in whole numbers, all zero by default. Its words point to a
/// gui_objects::Rectangle2i, and values are compared exactly:
///
///     const vcos::COSValue word = Rectangle2SC().from(vcos::COSValue::fromPointer("[1 2 3 4]"));
///     word.asPointer<gui_objects::Rectangle2i>()->getXMax();  // 4
///     Rectangle2DataType::getType()->destroy(word);
///
/// Kept: a rectangle is made from its corner and its size, and read back as its corners.
class VGDT_API Rectangle2DataType final
    : public PropertyDataType<Rectangle2DataType, gui_objects::Rectangle2i> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Rectangle2";
};

/// Between a C string and a word.
class VGDT_API Rectangle2SC final : public vcos::COSTypeConversion {
 public:
  /// The corners, "[1 2 4 6]", and "[0 0 0 0]" for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes left, bottom, width and height as four numbers in brackets. Fractions are cut off; a
  /// number that is no `int`, also NaN, becomes the most negative one.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException for any other text and for
  /// null; "VORTIL:InsetDataType:RectangleCrossedPointsException" for a negative width or height.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API Rectangle2VC final : public vcos::COSTypeConversion {
 public:
  /// The corners as 1-by-4 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes left, bottom, width and height as 1-by-4 of any numeric class. Fractions are cut off; of
  /// an integer the low 32 bits count; a number that is no `int`, also NaN, becomes the most
  /// negative one. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:datatypes:Rectangle2DataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:Rectangle2DataType:ArrayShape" for another size, also 4-by-1,
  /// "VORTIL:datatypes:Rectangle2DataType:ArrayNull" for an array without data,
  /// "VORTIL:InsetDataType:RectangleCrossedPointsException" for a negative width or height.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class java.awt.Rectangle and a word.
class VGDT_API Rectangle2JC final : public AbstractJavaConverter {
 public:
  /// The corner and the size. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Kept: what Java has as corners is taken as a corner and a size. Errors:
  /// "VORTIL:InsetDataType:RectangleCrossedPointsException".
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_Rectangle2DataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_Rectangle2DataType_callback();

}  // namespace graphics::datatype
