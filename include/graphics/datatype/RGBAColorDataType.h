#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/ColorBase.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// A colour, or none.
///
///     RGBAColor color(1, 0, 0, 1);
///     color.setStyle(ColorStyle::kNone);
///     color.isVisible();  // false
class RGBAColor final : public StyledColor<ColorStyle>, public ColorStyleTests<RGBAColor> {
  using StyledColor::StyledColor;
};

/// The type "RGBAColor": black and opaque by default.
class VGDT_API RGBAColorDataType final : public PropertyDataType<RGBAColorDataType, RGBAColor> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.RGBAColor";
  /// As that of PropertyDataType. An exception of the comparison, which throws none today, would
  /// become "VORTIL:datatypes:RGBAColorDataType:isEqual".
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
};

/// Between a C string and a word, as StyledColor says.
class VGDT_API RGBAColorSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: those of ColorBase::setColorFromString;
  /// "VORTIL:datatypes:RGBAColor:AmbiguousName" for a text that names a style and a colour.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word, as StyledColor says.
class VGDT_API RGBAColorVC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes three elements of class double or logical, or four with alpha, whatever the shape, and a
  /// char array with a text; null gives null.
  ///
  /// Errors: those of the text conversion; "VORTIL:vg:ColorBase:BadColorValue" for a number that is
  /// not from 0 to 1; "VORTIL:vg:dt_conv:ValueMustBe3ElementVector" for another number of elements;
  /// "VORTIL:datatypes:RGBAColor:ParseError" for an empty char array,
  /// "VORTIL:vg:datatypes:OutOfMemory" for one that gives no text;
  /// "VORTIL:vg:dt_conv:ValueMustBe3Double" for another class.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGColor and a word.
class VGDT_API RGBAColorJC final : public AbstractJavaConverter {
 public:
  /// Null for null and for the style kNone.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null gives the style kNone. Errors: those of ColorBase.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_RGBAColorDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_RGBAColorDataType_callback();

}  // namespace graphics::datatype
