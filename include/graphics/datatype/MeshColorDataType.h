#pragma once

#include <graphics/datatype/ColorBase.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The colour of a mesh: a colour, or one of the words "none", "flat", "interp" or "texturemap".
///
///     MeshColor color(1, 0, 0, 1);
///     color.isColor();  // true
///     color.setStyle(MeshColorStyle::kFlat);
class MeshColor final : public StyledColor<MeshColorStyle>, public MeshColorStyleTests<MeshColor> {
  using StyledColor::StyledColor;
};

/// The type "MeshColor": black and opaque by default.
class VGDT_API MeshColorDataType final : public PropertyDataType<MeshColorDataType, MeshColor> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.MeshColor";
  /// "VORTIL:datatypes:MeshColorDataType:isEqual" if an exception passes through the comparison.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
};

/// Between a C string and a word.
class VGDT_API MeshColorSC final : public vcos::COSTypeConversion {
 public:
  /// "[ 1 0.5 0 ]" or the word of the style, to be freed with utFree; null for null. Alpha does not
  /// show.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a word of MeshColorStyle but "color", or a beginning of only one, and what
  /// ColorBase::setColorFromString takes. Errors: those of setColorFromString, which null raises
  /// too, and "VORTIL:datatypes:MeshColor:AmbiguousName" for a text that is also a colour name or a
  /// beginning of one.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API MeshColorVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-3 double, red, green and blue, or the word of the style as a char array; 0-by-0 double
  /// for null. Alpha does not show.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three numbers, whatever the shape: fractions of class double or single, or levels of an
  /// integer class, 0 to 255, of which the low eight bits count; and a char array with a text.
  ///
  /// Errors: those of the text conversion; "VORTIL:vg:ColorBase:BadColorValue" for a fraction that
  /// is not from 0 to 1; "VORTIL:datatypes:MeshColor:ValueMustBe3ElementVector" for another number
  /// of elements; "VORTIL:datatypes:MeshColor:ParseError" for an empty char array,
  /// "VORTIL:vg:datatypes:OutOfMemory" for one that gives no text;
  /// "VORTIL:vg:dt_conv:Matrix_to_Real:ExpectedNumeric1" for another class and for null, whatever
  /// the number of elements.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_MeshColorDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_MeshColorDataType_callback();

}  // namespace graphics::datatype
