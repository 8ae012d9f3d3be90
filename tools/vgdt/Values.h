#pragma once

#include "Types.h"
#include "requests/JsonForms.h"

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

/// A value of a type. The type's default word is shown as it is, never copied and never destroyed.
class Value {
 public:
  /// RequestError if the type has no such route, LiteralError (with the column in its text) if a
  /// literal does not parse; otherwise whatever the conversion throws.
  Value(const Type& type, const GivenValue& given);

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

/// {"null", "word", "text", "array"} of a value. A conversion that raises has its error in place of
/// the member.
Json valueForm(const Type& type, vcos::COSValue word);

}  // namespace vgdt
