#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/Inset2d.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// Whether each pair of margins, in the order left, right, lower, upper, has
/// |a - b| / max(1, |a|, |b|) below 1e-12. NaN and infinities have not.
VGDT_API bool equalWithinRoundoffError(const gui_objects::Inset2d& a,
                                       const gui_objects::Inset2d& b) noexcept;

/// The type "Inset": the margins of a rectangle, left, lower, right and upper, none of them
/// negative; all zero by default. Its words point to a gui_objects::Inset2d, and values are
/// compared exactly:
///
///     const vcos::COSValue word = InsetSC().from(vcos::COSValue::fromPointer("[1 2 3 4]"));
///     word.asPointer<gui_objects::Inset2d>()->getYMax();  // 4
///     InsetDataType::getType()->destroy(word);
class VGDT_API InsetDataType final : public PropertyDataType<InsetDataType, gui_objects::Inset2d> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Inset";
};

/// Between a C string and a word.
class VGDT_API InsetSC final : public vcos::COSTypeConversion {
 public:
  /// Kept: the word is a host array, in the form that InsetVC::to() gives, and no value. Gives
  /// "[1 2 3 4]" with six digits, elements of integer classes as integers, NaN and infinities
  /// as "nan" and "inf"; empty for null; to be freed with utFree.
  ///
  /// Errors: those of InsetVC::from() for its class, its size and an array without data.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes four numbers in brackets. Kept: any other text, and null, gives a new value that is all
  /// zero.
  ///
  /// Errors: "VORTIL:InsetDataType:InvalidInsetException" for a negative margin.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API InsetVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-4 double; 0-by-0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a 1-by-4 array of any numeric class. Null gives null.
  ///
  /// Errors, in this order: "VORTIL:vg:dt_conv:Matrix_to_vortilRect:ExpectedNumeric" for another
  /// class, "VORTIL:vg:dt_conv:Matrix_to_vortilRect:Expected4ElementVector" for another size, also
  /// 4-by-1, "VORTIL:datatypes:InsetDataType:ArrayNull" for an array without data,
  /// "VORTIL:InsetDataType:InvalidInsetException" for a negative margin.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API InsetJC final : public ArrayJavaConverter<InsetVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_InsetDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_InsetDataType_callback();

}  // namespace graphics::datatype
