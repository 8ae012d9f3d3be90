#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Rectangles.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

namespace graphics::datatype {

/// A rectangle in floating-point coordinates, in units that its owner knows: left, bottom, width,
/// height.
///
///     const Position position(10, 20, 640, 480);
///     position.getWidth();  // 640
class VGDT_API Position final : public HostAllocated {
 public:
  /// All zero.
  Position() = default;
  /// Errors: gui_objects::RectangleCrossedPointsException for a negative width or height.
  Position(double x, double y, double width, double height) : rectangle_(x, y, width, height) {}
  Position(const gui_objects::Rectangle2d& rectangle) : rectangle_(rectangle) {}

  double getX() const noexcept { return rectangle_.getXMin(); }
  double getY() const noexcept { return rectangle_.getYMin(); }
  double getWidth() const noexcept { return rectangle_.getWidth(); }
  double getHeight() const noexcept { return rectangle_.getHeight(); }
  const gui_objects::Rectangle2d& asRectangle2d() const noexcept { return rectangle_; }

 private:
  gui_objects::Rectangle2d rectangle_;
};

/// Exact; NaN equals nothing.
VGDT_API bool operator==(const Position& a, const Position& b) noexcept;
/// Whether each pair of x, y, width and height has |a - b| / max(1, |a|, |b|) below 1e-12. NaN and
/// infinities have not.
VGDT_API bool equalWithinRoundoffError(const Position& a, const Position& b) noexcept;
/// As the host compares rectangles: see gui_objects/nearlyEqual.h.
VGDT_API bool nearlyEqual(const Position& a, const Position& b) noexcept;

/// Tests the shape and the data of an array whose class is that of `Traits`, a vg::MatrixTraits of
/// one of the ten numeric classes.
///
/// Errors, in this order: gui_objects::InvalidArrayShapeException unless it is 1-by-4 or 4-by-1,
/// where the columns are what vxGetN() says; gui_objects::NullArrayException for an array without
/// data; gui_objects::InvalidArrayDataException unless its third and fourth elements, the width and
/// the height, are 0 or more. NaN is not.
template <class Traits>
VGDT_API void helpPositionArrayValidateExecutor(const vxArray* array);

namespace position {

/// What validateArray() has read.
struct ValidateExecutor {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// Tests an array of any numeric class and reads its four elements.
///
/// Errors, in this order: "VORTIL:vg:dt_conv:Matrix_to_vortilRect:ExpectedNumeric" for another
/// class and for null, "VORTIL:vg:dt_conv:Matrix_to_vortilRect:Expected4ElementVector" for a size
/// that is neither 1-by-4 nor 4-by-1, "VORTIL:datatypes:positiondatatype:NullValue" for an array
/// without data, "VORTIL:vg:set_chck:DimensionsOutsideRange" for a width or height that is not 0 or
/// more, "VORTIL:vg:dt_conv:Matrix_to_vortilRect:ExpectedNumeric" again for NaN and infinities. The
/// record is then as it was.
VGDT_API void validateArray(ValidateExecutor& record, const vxArray* array);

}  // namespace position

/// The type "Position": all zero by default.
class VGDT_API PositionDataType final : public PropertyDataType<PositionDataType, Position> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Position";
  /// As that of PropertyDataType, but null becomes a new value, all zero.
  vcos::COSValue copy(vcos::COSValue value) const override;
};

/// Between a C string and a word.
class VGDT_API PositionSC final : public vcos::COSTypeConversion {
 public:
  /// "[10 20 640 480]" with six digits, empty for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes four numbers in brackets. Kept: any other text, and null, gives a new value that is all
  /// zero.
  ///
  /// Errors: "VORTIL:vg:PositionDataType:InvalidPositionException" for a negative width or height.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API PositionVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-4 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null gives null. Errors: as position::validateArray().
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGRectangle and a word.
class VGDT_API PositionJC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "VORTIL:vg:PositionDataType:InvalidPositionException" for a negative size.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_PositionDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_PositionDataType_callback();

}  // namespace graphics::datatype
