#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/ColorBase.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The colour of a mesh: a colour, or one of the words "none", "flat", "interp" and "texturemap".
///
///     MeshColor color(1, 0, 0, 1);
///     color.isColor();  // true
///     color.setStyle(MeshColorStyle::kInterp);
class MeshColor final : public StyledColor<MeshColorStyle>, public MeshColorStyleTests<MeshColor> {
  using StyledColor::StyledColor;
};

/// The type "MeshColor": black and opaque by default.
class VGDT_API MeshColorDataType final : public PropertyDataType<MeshColorDataType, MeshColor> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.MeshColor";
  /// As that of PropertyDataType. An exception of the comparison, which throws none today, would
  /// become "VORTIL:datatypes:MeshColorDataType:isEqual".
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
};

/// Between a C string and a word, as StyledColor says.
class VGDT_API MeshColorSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: those of ColorBase::setColorFromString;
  /// "VORTIL:datatypes:MeshColor:AmbiguousName" for a text that names a style and a colour.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word, as StyledColor says.
class VGDT_API MeshColorVC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three elements, whatever the shape: fractions of class double or single, or levels of an
  /// integer class, 0 to 255, of which the low eight bits count; and a char array with a text.
  ///
  /// Errors: those of the text conversion; "VORTIL:vg:ColorBase:BadColorValue" for a fraction that
  /// is not from 0 to 1; "VORTIL:datatypes:MeshColor:ValueMustBe3ElementVector" for another number
  /// of elements; "VORTIL:datatypes:MeshColor:ParseError" for an empty char array,
  /// "VORTIL:vg:datatypes:OutOfMemory" for one that gives no text;
  /// "VORTIL:vg:dt_conv:Matrix_to_Real:ExpectedNumeric1" for another class, whatever the number of
  /// elements, and for null.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGMeshColor and a word.
class VGDT_API MeshColorJC final : public AbstractJavaConverter {
 public:
  /// The int behind the style or the colour is 0. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "Invalid style for MeshColor: ..."; those of ColorBase.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_MeshColorDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_MeshColorDataType_callback();

}  // namespace graphics::datatype
