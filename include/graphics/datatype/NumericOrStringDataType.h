#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/TextStringDataType.h>

namespace graphics::datatype {

/// A text that is made of numbers, of lines or of both, such as the labels of ticks. What is given
/// becomes a valid TextString: each number is a line, written with six digits, and each line feed
/// ends one.
///
///     const NumericOrString labels(array);           // [1 22 3], for instance
///     const vxArray* rows = labels.getPtr();         // ['1 ';'22';'3 ']
class VGDT_API NumericOrString final : public TextString {
 public:
  /// The empty text.
  NumericOrString();
  /// As TextString: line feeds stay in the one row.
  explicit NumericOrString(const char* text);
  /// Takes
  /// - a char array. If it has line feeds, they end lines, which become the rows of a matrix with
  ///   blanks behind the shorter ones; otherwise its elements are shared, as a matrix.
  /// - an array of a numeric class, whose real parts become the rows if it is a row or a column;
  ///   any other matrix, and an empty one, becomes the empty text.
  /// - a cell array of such arrays. It becomes a column with each of their lines in a cell.
  /// - an empty cell array, which stays as it is.
  ///
  /// Errors: the messages of isValid(); for null ArrayClass, although isValid() takes it; and
  /// "VORTIL:vg:datatypes:TextStringDataType:ArrayClass" for an empty array of another class.
  explicit NumericOrString(const vxArray* array);
  NumericOrString(const NumericOrString& other);
  NumericOrString& operator=(const NumericOrString& other);
  ~NumericOrString() override;

  /// Valid are null, char and numeric arrays, empty arrays of any class, and cell arrays of any
  /// shape whose elements are char or numeric. Otherwise `message` gets, under
  /// "VORTIL:vg:datatypes:NumericOrStringDataType:", ArrayClass for another class, or
  /// InvalidCellArray for another element, also for null.
  bool isValid(const vxArray* array, boost::shared_ptr<resource_core::BaseMsgID>& message) override;
};

/// The type "NumericOrString": the empty text by default.
class VGDT_API NumericOrStringDataType final
    : public PropertyDataType<NumericOrStringDataType, NumericOrString> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.NumericOrString";

  /// Kept: a new default value for null.
  vcos::COSValue copy(vcos::COSValue value) const override;
};

/// Between a C string and a word.
class VGDT_API NumericOrStringSC final : public vcos::COSTypeConversion {
 public:
  /// Always null: the type has no text form.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes any text in UTF-8 as one line, line feeds and all. Null gives the empty text.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API NumericOrStringVC final : public vcos::COSTypeConversion {
 public:
  /// The array of the text, shared; 0-by-0 char for null. It is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what the constructor takes, and raises what it does; null gives the empty text.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class java.lang.String[] and a word.
class VGDT_API NumericOrStringJC final : public AbstractJavaConverter {
 public:
  /// By way of NStrings.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// By way of NStrings, which a null makes empty.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_NumericOrStringDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_NumericOrStringDataType_callback();

}  // namespace graphics::datatype
