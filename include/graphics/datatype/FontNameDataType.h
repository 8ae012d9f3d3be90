#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/UTF16String.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "FontName": the name of a font, whether there is one of that name or not; "FixedWidth"
/// by default. Its words are C strings on the host's heap, or null:
///
///     const vcos::COSValue word = FontNameSC().from(vcos::COSValue::fromPointer("Serif"));
///     word.asPointer<char>();  // "Serif"
///     FontNameDataType::getType()->destroy(word);
class VGDT_API FontNameDataType final : public NamedDataType<FontNameDataType> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.FontName";

  /// One word, made at the first call, which is nobody's to destroy.
  vcos::COSValue getDefaultValue() const override;
  /// Byte by byte, so that the case counts.
  ///
  /// Kept: callers rely on it that an empty name equals a null on its right, whereas a null on the
  /// left equals only null.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  vcos::COSValue copy(vcos::COSValue value) const override;  ///< null for null
  void destroy(vcos::COSValue value) const override;         ///< nothing for null
};

/// Between a C string and a word.
class VGDT_API FontNameSC final : public vcos::COSTypeConversion {
 public:
  /// Kept: the word itself, which stays the value's and must not be freed.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// A copy of any text, also of an empty one; null gives null.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API FontNameVC final : public vcos::COSTypeConversion {
 public:
  /// What the repository's conversion from "any" to "string" makes of the name: a char row, 0-by-0
  /// for null and for the empty name. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a row that the same conversion reads as a text.
  ///
  /// Errors: "VORTIL:class:VORTILConversionError", for null, an array that is empty or no row, and
  /// a text that reads as none; what that conversion raises for another class.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGFontName and a word.
class VGDT_API FontNameJC final : public AbstractJavaConverter {
 public:
  /// By its factory newInstance(). Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "Invalid font: null" and "Invalid font name", the latter for an empty name.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Whether Java knows a font of that name, in any case. False for null and for an empty name; true
/// for any other where no Java machine runs. To be called on a thread that Java knows.
///
/// Errors: "VORTIL:class:VORTILConversionError" if the Java class
/// com.lindgrove.vg.types.VGFontName is missing.
VGDT_API bool isFontNameValidIgnoreCase(const char* name);

/// A UTF-8 text in 16-bit units; empty for null. Errors: a vcos::COSOutOfMemoryException or a
/// std::bad_alloc.
VGDT_API gui_objects::UTF16String asUTF16String(const char* text);

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_FontNameDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_FontNameDataType_callback();

}  // namespace graphics::datatype
