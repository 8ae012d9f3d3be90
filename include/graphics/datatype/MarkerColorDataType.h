#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/ColorBase.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The colour of a marker: a colour, or one of the words "none", "flat" and "auto".
///
///     MarkerColor color(1, 0, 0, 1);
///     color.isColor();  // true
///     color.setStyle(MarkerColorStyle::kAuto);
class MarkerColor final : public StyledColor<MarkerColorStyle>,
                          public MarkerColorStyleTests<MarkerColor> {
  using StyledColor::StyledColor;
};

/// The type "MarkerColor": black and opaque by default.
class VGDT_API MarkerColorDataType final
    : public PropertyDataType<MarkerColorDataType, MarkerColor> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.MarkerColor";
  /// As that of PropertyDataType. An exception of the comparison, which throws none today, would
  /// become "VORTIL:datatypes:MarkerColorDataType:isEqual".
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
};

/// Between a C string and a word, as StyledColor says.
class VGDT_API MarkerColorSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: those of ColorBase::setColorFromString;
  /// "VORTIL:datatypes:MarkerColor:AmbiguousName" for a text that names a style and a colour.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word, as StyledColor says.
class VGDT_API MarkerColorVC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three elements, whatever the shape: fractions of class double or single, or levels of an
  /// integer class, 0 to 255, of which the low eight bits count; and a char array with a text. Null
  /// gives null.
  ///
  /// Errors: those of the text conversion; "VORTIL:vg:ColorBase:BadColorValue" for a fraction that
  /// is not from 0 to 1; "VORTIL:datatypes:MarkerColor:ValueMustBe3ElementVector" for another
  /// number of elements; "VORTIL:datatypes:MarkerColor:ParseError" for an empty char array,
  /// "VORTIL:vg:datatypes:OutOfMemory" for one that gives no text;
  /// "VORTIL:vg:dt_conv:Matrix_to_Real:ExpectedNumeric" for three elements of another class.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGStyledColor and a word.
class VGDT_API MarkerColorJC final : public AbstractJavaConverter {
 public:
  /// With the names of all styles. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "Invalid style for MarkerColor: ..."; those of ColorBase.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_MarkerColorDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_MarkerColorDataType_callback();

}  // namespace graphics::datatype
