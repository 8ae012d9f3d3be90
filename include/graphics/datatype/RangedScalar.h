#pragma once

#include <graphics/datatype/ErrorMessage.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/export.h>

namespace graphics::datatype {

/// A finite number that is confined to the range of `Type`, which derives from this class.
///
///     ErrorMessage why("", "");
///     if (!Positive::isValid(0, &why)) std::puts(why.text().c_str());
template <class Type>
class VGDT_API RangedScalar : public HostAllocated {
 public:
  /// The default of the type.
  RangedScalar() noexcept;
  /// Errors: an InvalidValueException with what isValid() says of a number out of range.
  explicit RangedScalar(double value);

  double getValue() const noexcept { return value_; }

  /// Whether a number is a value. If it is none, `message` is filled, unless it is null: the
  /// identifier is "VORTIL:datatypes:valueOutsideValidRange".
  static bool isValid(double value, ErrorMessage* message);

 private:
  double value_;
};

}  // namespace graphics::datatype
