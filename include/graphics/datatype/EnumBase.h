#pragma once

#include <graphics/datatype/export.h>

namespace graphics::datatype {

/// Base of the value classes of all enumerated types. Whoever holds the word of such a value can
/// read its number without knowing the type:
///
///     const int number = word.asPointer<const EnumBase>()->getIntValue();
class VGDT_API EnumBase {
 public:
  virtual ~EnumBase();
  /// The enumerator.
  virtual int getIntValue() const = 0;

 protected:
  EnumBase() = default;
  EnumBase(const EnumBase&) = default;
  EnumBase& operator=(const EnumBase&) = default;
};

}  // namespace graphics::datatype
