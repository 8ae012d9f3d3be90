#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "CaseInsensitiveString": a text whose case is kept and does not count when it is
/// compared. Its words are C strings on the host's heap, or null, which is the default and differs
/// from the empty text:
///
///     const vcos::COSDataType* type = CaseInsensitiveStringDataType::getType();
///     type->isEqual(vcos::COSValue::fromPointer("Left"), vcos::COSValue::fromPointer("LEFT"));
///
/// The C library says which characters are alike (strcasecmp, byte by byte).
class VGDT_API CaseInsensitiveStringDataType final
    : public NamedDataType<CaseInsensitiveStringDataType> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.CaseInsensitiveString";

  vcos::COSValue getDefaultValue() const override;
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  vcos::COSValue copy(vcos::COSValue value) const override;  ///< null for null
  void destroy(vcos::COSValue value) const override;         ///< nothing for null
};

/// Between a C string and a word.
class VGDT_API CaseInsensitiveStringSC final : public vcos::COSTypeConversion {
 public:
  /// Always null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Kept: takes the text itself over, uncopied. It has to be one that utFree can free, and is the
  /// value's from now on.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API CaseInsensitiveStringVC final : public vcos::COSTypeConversion {
 public:
  /// A char row, 0-by-0 for null and for the empty text. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a char array of any size, whose characters are read in storage order. Null gives null.
  ///
  /// Errors: what the host raises for another class ("VORTIL:class:VORTILConversionError").
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API CaseInsensitiveStringJC final : public ArrayJavaConverter<CaseInsensitiveStringVC> {
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_CaseInsensitiveStringDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_CaseInsensitiveStringDataType_callback();

}  // namespace graphics::datatype
