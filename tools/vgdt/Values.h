#pragma once

#include "Errors.h"
#include "Types.h"

#include <vx/scopes.h>

#include <optional>
#include <string>

namespace vgdt {

/// Arrays made while it lives end with it, unless somebody has detached them.
class ArrayScope {
 public:
  ArrayScope() : context_(vxEnterNewArrayListContext()) {}
  ~ArrayScope() { vxExitArrayListContext(context_, nullptr, 0, true); }
  ArrayScope(const ArrayScope&) = delete;
  ArrayScope& operator=(const ArrayScope&) = delete;

 private:
  vxArrayListContext* context_;
};

/// A value as a user gives it.
struct GivenValue {
  enum class Route {
    Text,   ///< for the text conversion
    Array,  ///< a literal for the array conversion
    Word,   ///< "default" or "null"
  };
  Route route;
  std::string content;
};

/// The array of a literal. LiteralError, with the column in its text, if the literal does not
/// parse.
vcos::ArrayOwner readLiteral(const std::string& literal);
/// The same for the array conversion of a type; RequestError if the type has none.
vcos::ArrayOwner readLiteral(const Type& type, const std::string& literal);

/// A value of a type. The type's default word is shown as it is, never copied and never destroyed.
class Value {
 public:
  /// RequestError if the type has no such route, LiteralError as readLiteral(); otherwise whatever
  /// the conversion throws.
  Value(const Type& type, const GivenValue& given);
  /// From what readLiteral() gave.
  Value(const Type& type, const vxArray* array);

  vcos::COSValue word() const { return word_; }

 private:
  vcos::COSValue word_;
  std::optional<vcos::OwnedValue> owner_;
};

/// The text of a value; none where the type has none for it.
std::optional<std::string> textOf(const Type& type, vcos::COSValue word);
/// The host array of a value; null where the type gives none.
vcos::ArrayOwner arrayOf(const Type& type, vcos::COSValue word);

/// "0x0000000000000001".
std::string wordText(vcos::COSValue word);

/// What there is to show of a value. It outlives the value and the present ArrayScope.
struct ValueForm {
  bool isNull;
  std::string wordText;  ///< empty where the word is a pointer
  std::optional<std::string> text;
  std::optional<Failure> textFailure;  ///< how the conversion to text ended, if it raised
  vcos::ArrayOwner array;
  std::optional<Failure> arrayFailure;
};
ValueForm valueForm(const Type& type, vcos::COSValue word);

}  // namespace vgdt
