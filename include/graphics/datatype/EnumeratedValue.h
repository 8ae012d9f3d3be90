#pragma once

/// What the value classes of the enumerated types derive from.
/// <graphics/datatype/enumerated_types.h> has the classes themselves. A value is an object of the
/// host's memory, whatever its type:
///
///     const EnumBase* value = new LineStyle(LineStyle::kDashed);
///     value->getIntValue();  // 1
///     delete value;

#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/HostAllocated.h>

namespace graphics::datatype {

/// A value of an enumerated type: an enumerator, held in the host's memory.
class VGDT_API EnumeratedValue : public EnumBase, public HostAllocated {
 public:
  int getIntValue() const noexcept final { return enumValue_; }

 protected:
  explicit EnumeratedValue(int enumerator) noexcept : enumValue_(enumerator) {}

 private:
  int enumValue_;
  [[maybe_unused]] void* enumCompanion_ = nullptr;  // part of the layout that callers know
};

}  // namespace graphics::datatype
