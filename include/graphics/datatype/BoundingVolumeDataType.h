#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/BoundingVolume.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "BoundingVolume": a box in space, all zero by default. Its words point to a
/// gui_objects::BoundingVolume. Values with the same center and the same three widths are equal;
/// one that is infinite to both sides has no center, and equals nothing.
///
///     const vcos::COSValue text = vcos::COSValue::fromPointer("[0 0 0; 1 2 3]");
///     const vcos::COSValue word = BoundingVolumeSC().from(text);
///     word.asPointer<gui_objects::BoundingVolume>()->getYMax();  // 2
///     BoundingVolumeDataType::getType()->destroy(word);
class VGDT_API BoundingVolumeDataType final
    : public PropertyDataType<BoundingVolumeDataType, gui_objects::BoundingVolume> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.BoundingVolume";
};

/// Between a C string and a word.
class VGDT_API BoundingVolumeSC final : public vcos::COSTypeConversion {
 public:
  /// The corners, "[ 0 0 0 ; 1 2 3 ]" with six digits, empty for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes two rows of three numbers in brackets, the minimum and the maximum. Kept: any other
  /// text, and null, gives a new value that is all zero.
  ///
  /// Errors: gui_objects::InvalidWidthException for a maximum that is not at or above its minimum,
  /// or the same infinity.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API BoundingVolumeVC final : public vcos::COSTypeConversion {
 public:
  /// 2-by-3 double, the minimum in the first row; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a 2-by-3 array of any numeric class: a column for each axis, with its minimum and its
  /// maximum. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:datatypes:BoundingVolumeDataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:BoundingVolumeDataType:ArrayShape" for another size,
  /// "VORTIL:datatypes:BoundingVolumeDataType:ArrayNull" for an array without data,
  /// "VORTIL:datatypes:BoundingVolumeDataType:InvalidWidth" for a maximum that is not at or above
  /// its minimum, or the same infinity.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API BoundingVolumeJC final : public ArrayJavaConverter<BoundingVolumeVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_BoundingVolumeDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_BoundingVolumeDataType_callback();

}  // namespace graphics::datatype
