#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Matrix4x4d.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Matrix4x4": a transformation of space, the identity by default. Its words point to a
/// gui_objects::Matrix4x4d, and are compared as the host compares matrices: see
/// gui_objects/nearlyEqual.h.
///
///     const vcos::COSValue word = Matrix4x4VC().from({});  // null stands for the identity
///     word.asPointer<gui_objects::Matrix4x4d>()->get(4, 4);  // 1
///     Matrix4x4DataType::getType()->destroy(word);
class VGDT_API Matrix4x4DataType final
    : public PropertyDataType<Matrix4x4DataType, gui_objects::Matrix4x4d> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Matrix4x4";
};

/// Between a C string and a word.
class VGDT_API Matrix4x4SC final : public vcos::COSTypeConversion {
 public:
  /// Rows as in "[1 0 0 0;0 1 0 0;0 0 1 0;0 0 0 1]", with six digits; to be freed with utFree.
  /// Kept: the identity that null gives has a blank behind each semicolon.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes four rows of four numbers in brackets.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException for any other text and for
  /// null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API Matrix4x4VC final : public vcos::COSTypeConversion {
 public:
  /// 4-by-4 double, the identity for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a 4-by-4 array of any numeric class. Null gives the identity.
  ///
  /// Errors, in this order: "VORTIL:datatypes:Matrix4x4DataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:Matrix4x4DataType:ArrayShape" for another size,
  /// "VORTIL:datatypes:Matrix4x4DataType:ArrayNull" for an array without data.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API Matrix4x4JC final : public ArrayJavaConverter<Matrix4x4VC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_Matrix4x4DataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_Matrix4x4DataType_callback();

}  // namespace graphics::datatype
