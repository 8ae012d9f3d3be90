#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/NStrings.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "NStrings": a list of texts; empty by default. Its words point to the host's NStrings:
///
///     const vcos::COSValue word = NStringsSC().from(vcos::COSValue::fromPointer("{'a', 'b'}"));
///     word.asPointer<NStrings>()->getNumStrings();  // 2
///     NStringsDataType::getType()->destroy(word);
class VGDT_API NStringsDataType final : public PropertyDataType<NStringsDataType, NStrings> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.NStrings";
};

/// Between a C string and a word.
class VGDT_API NStringsSC final : public vcos::COSTypeConversion {
 public:
  /// Always null: a list has no text form.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what gui_objects::convert_from_string_utils::parse_strings() reads: a list of texts, or
  /// any other text as the only one. "", "[]", "{}" and null give an empty list.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API NStringsVC final : public vcos::COSTypeConversion {
 public:
  /// What NStrings::toMatrix() gives, for null as for an empty list. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a char array or a cell array of them; null gives an empty list.
  ///
  /// Errors: what the constructor of NStrings raises ("VORTIL:class:VORTILConversionError").
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class java.lang.String[] and a word.
class VGDT_API NStringsJC final : public AbstractJavaConverter {
 public:
  /// An empty array for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null gives an empty list, and an entry that is null an empty text.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_NStringsDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_NStringsDataType_callback();

}  // namespace graphics::datatype
