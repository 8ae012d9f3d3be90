#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// Between a C string and a scalar that its word holds itself. The integers stand in the low
/// sizeof(T) bytes of the word, float and double as the bits of a double, bool as zero or not.
/// signed char and unsigned char stand for characters, not numbers. There are no blanks in a text.
///
///     const StringConversion<int> conversion;
///     const vcos::COSValue word = conversion.from(vcos::COSValue::fromPointer("-12"));
///     const int number = word.asInteger<int>();
///
/// The global C++ locale counts: integers are printed with its grouping, integers and floating
/// numbers are read with it, and floating numbers are read with its decimal point. They are printed
/// with the decimal point of the C locale.
template <class T>
class VGDT_API StringConversion final : public vcos::COSTypeConversion {
 public:
  /// A new string, which the caller frees with utFree: decimal digits, for float 9 and for double
  /// 17 of them, which give the same bits when they are read back; "nan", "-nan", "inf" or "-inf";
  /// "true" or "false"; the one character.
  ///
  /// Errors: gui_objects::convert_from_string_utils::ParseException if there is no text for the
  /// value; vcos::COSOutOfMemoryException.
  vcos::COSValue to(vcos::COSValue value) const override;

  /// Takes
  /// - for a character type exactly one character;
  /// - for the other integers decimal digits with or without a sign. A negative text of an unsigned
  ///   type gives the two's complement;
  /// - for float and double a decimal number, or, all in lower or all in upper case, "inf",
  ///   "infinity", "nan" or "nan(...)", each with or without a sign;
  /// - for bool "true" and "false" alone.
  ///
  /// Anything else, also a value out of range or a null text, is a
  /// gui_objects::convert_from_string_utils::ParseException.
  vcos::COSValue from(vcos::COSValue text) const override;
};

extern template class StringConversion<signed char>;
extern template class StringConversion<short>;
extern template class StringConversion<int>;
extern template class StringConversion<long>;
extern template class StringConversion<unsigned char>;
extern template class StringConversion<unsigned short>;
extern template class StringConversion<unsigned int>;
extern template class StringConversion<unsigned long>;
extern template class StringConversion<float>;
extern template class StringConversion<double>;
extern template class StringConversion<bool>;

/// Between a C string and a value of the host's type "string", which is a C string as well. Both
/// directions return a copy that the type makes, which the caller destroys; null for null.
class VGDT_API StringStringConversion final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Registers the text conversions of the host's own scalars and of "string"; part of start-up.
///
/// Errors: a vcos::COSException if one of them has a text conversion already.
VGDT_API void initStringConverters();

}  // namespace graphics::datatype
