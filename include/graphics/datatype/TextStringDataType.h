#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <gui_objects/UTF16String.h>
#include <vcos/COSTypeConversion.h>

#include <vector>

namespace graphics::datatype {

/// A text that may have several lines: a char matrix, one row for each line, or a column cell array
/// of them.
///
///     const TextString text("one line");
///     text.getUTF16String().size();  // 1
class VGDT_API TextString : public ArrayBase, public HostAllocated {
 public:
  /// The empty text, a 0-by-0 char array.
  TextString();
  /// A char row of a UTF-8 text, line feeds and all; the empty text for null.
  explicit TextString(const char* text);
  /// Shares the elements of an array that is valid; no array for null. Raises the message of
  /// isValid() for any other.
  explicit TextString(const vxArray* array);
  TextString(const TextString& other);
  TextString& operator=(const TextString& other);
  ~TextString() override;

  /// Valid are null, a char array that is empty or has two dimensions, an empty cell array, and an
  /// n-by-1 cell array whose elements are such char arrays or null. Otherwise `message` gets, under
  /// "VORTIL:vg:datatypes:TextStringDataType:", ArrayClass for another class, IncorrectShape for
  /// other dimensions, InvalidCellArray for another element.
  bool isValid(const vxArray* array, boost::shared_ptr<resource_core::BaseMsgID>& message) override;

  /// The lines, as the host's gui_objects::createUTF16StringsFromArray() gives them: one for each
  /// row of a char array, or for each cell. None for an empty text.
  virtual std::vector<gui_objects::UTF16String> getUTF16String() const;

  /// Whether the lines are the same, whatever the form they come in: a char matrix may equal a cell
  /// array.
  bool operator==(const TextString& other) const;
};

/// The type "TextString": the empty text by default.
class VGDT_API TextStringDataType final : public PropertyDataType<TextStringDataType, TextString> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.TextString";

  /// Kept: a new default value for null.
  vcos::COSValue copy(vcos::COSValue value) const override;
};

/// Between a C string and a word.
class VGDT_API TextStringSC final : public vcos::COSTypeConversion {
 public:
  /// Always null: the type has no text form.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any text in UTF-8 as one line, line feeds and all. Null gives the empty text.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API TextStringVC final : public vcos::COSTypeConversion {
 public:
  /// The array, shared; 0-by-0 char for null. It is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what TextString::isValid() says; null gives the empty text. Errors: the messages there.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API TextStringJC final : public ArrayJavaConverter<TextStringVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_TextStringDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_TextStringDataType_callback();

}  // namespace graphics::datatype
