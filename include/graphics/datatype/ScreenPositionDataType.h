#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Rectangles.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

namespace graphics::datatype {

/// A rectangle in whole pixels: left, bottom, width, height.
///
///     const ScreenPosition position(10, 20, 640, 480);
///     position.asRectangle2i().getXMax();  // 650
class VGDT_API ScreenPosition final : public HostAllocated {
 public:
  /// All zero.
  ScreenPosition() = default;
  /// Errors: gui_objects::RectangleCrossedPointsException for a negative width or height.
  ScreenPosition(int x, int y, int width, int height) : rectangle_(x, y, width, height) {}
  ScreenPosition(const gui_objects::Rectangle2i& rectangle) : rectangle_(rectangle) {}

  int getX() const noexcept { return rectangle_.getXMin(); }
  int getY() const noexcept { return rectangle_.getYMin(); }
  int getWidth() const noexcept { return rectangle_.getWidth(); }
  int getHeight() const noexcept { return rectangle_.getHeight(); }
  const gui_objects::Rectangle2i& asRectangle2i() const noexcept { return rectangle_; }

 private:
  gui_objects::Rectangle2i rectangle_;
};

VGDT_API bool operator==(const ScreenPosition& a, const ScreenPosition& b) noexcept;
/// Exact, too: there is no tolerance for whole pixels. Compares the corners.
VGDT_API bool nearlyEqual(const ScreenPosition& a, const ScreenPosition& b) noexcept;

namespace screenposition {

/// Tests an array of an integer class.
///
/// Errors, in this order: "VORTIL:datatypes:screenposition:InvalidDataType" for another class, also
/// double and single, and for null, "VORTIL:datatypes:screenposition:InvalidFormat" for a size that
/// is neither 1-by-4 nor 4-by-1, "VORTIL:datatypes:screenposition:NullDataPointer" for an array
/// without data, "VORTIL:datatypes:screenposition:InvalidWidthAndHeight" for a negative width or
/// height.
VGDT_API void validateArray(const vxArray* array);

}  // namespace screenposition

/// The type "ScreenPosition": all zero by default, and compared exactly.
class VGDT_API ScreenPositionDataType final
    : public PropertyDataType<ScreenPositionDataType, ScreenPosition> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.ScreenPosition";
};

/// Between a C string and a word.
class VGDT_API ScreenPositionSC final : public vcos::COSTypeConversion {
 public:
  /// "[10 20 640 480]", empty for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes four numbers in brackets, whose fractions are cut off; one that is no `int` becomes the
  /// most negative one. Kept: any other text, and null, gives a new value that is all zero.
  ///
  /// Errors: "VORTIL:vg:PositionDataType:InvalidScreenPositionException" for a negative width or
  /// height.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API ScreenPositionVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-4 int32; null for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Of each element the low 32 bits count, so that a large one may become negative. Null gives
  /// null.
  ///
  /// Errors: as screenposition::validateArray();
  /// "VORTIL:vg:PositionDataType:InvalidScreenPositionException" for a width or height that has
  /// become negative.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API ScreenPositionJC final : public ArrayJavaConverter<ScreenPositionVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_ScreenPositionDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_ScreenPositionDataType_callback();

}  // namespace graphics::datatype
