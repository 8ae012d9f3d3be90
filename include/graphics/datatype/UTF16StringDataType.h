#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/UTF16String.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "UTF16String": one Unicode text; empty by default. Its words point to a
/// gui_objects::UTF16String on the ordinary heap, and values are compared unit by unit:
///
///     const vcos::COSValue word =
///     UTF16StringSC().from(vcos::COSValue::fromPointer("caf\xC3\xA9"));
///     word.asPointer<gui_objects::UTF16String>()->size();  // 4
///     UTF16StringDataType::getType()->destroy(word);
class VGDT_API UTF16StringDataType final
    : public PropertyDataType<UTF16StringDataType, gui_objects::UTF16String> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.UTF16String";
};

/// Between a C string and a word.
class VGDT_API UTF16StringSC final : public vcos::COSTypeConversion {
 public:
  /// To be freed with utFree. Null for null and for an empty text.
  ///
  /// Kept: each unit becomes one byte, its low one, whatever the character; nothing is encoded.
  ///
  /// Errors: a vcos::COSOutOfMemoryException.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any text in UTF-8; what is broken in it becomes U+FFFD. Null gives the empty text.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API UTF16StringVC final : public vcos::COSTypeConversion {
 public:
  /// A char row; 0-by-0 char for null and for the empty text. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a char array with one row. An empty one and null give the empty text.
  ///
  /// Errors: "VORTIL:datatypes:UTF16StringDataType:ArrayClass" for another class,
  /// "VORTIL:datatypes:UTF16StringDataType:NumberOfStrings" for several rows.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class java.lang.String and a word.
class VGDT_API UTF16StringJC final : public AbstractJavaConverter {
 public:
  /// "" for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null gives "".
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_UTF16StringDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_UTF16StringDataType_callback();

}  // namespace graphics::datatype
