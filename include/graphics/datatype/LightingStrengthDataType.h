#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/RangedScalar.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// How strong a kind of light is, from 0 to 1; 0 by default.
///
///     asDouble(LightingStrength(0.5));  // 0.5
class VGDT_API LightingStrength final : public RangedScalar<LightingStrength> {
  using RangedScalar::RangedScalar;
};

VGDT_API double asDouble(const LightingStrength& value) noexcept;
/// As the host compares numbers: see gui_objects/nearlyEqual.h.
VGDT_API bool nearlyEqual(const LightingStrength& a, const LightingStrength& b) noexcept;

/// The type "LightingStrength": 0 by default. Values are compared with nearlyEqual().
class VGDT_API LightingStrengthDataType final
    : public PropertyDataType<LightingStrengthDataType, LightingStrength> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.LightingStrength";
};

/// Between a C string and a word.
class VGDT_API LightingStrengthSC final : public vcos::COSTypeConversion {
 public:
  /// "[0.5]" with six digits, empty for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a number from 0 to 1, with or without brackets.
  ///
  /// Errors, no host errors but each an InvalidValueException with the identifier:
  /// "VORTIL:datatypes:invalidValue_0_1" for any other text and for null,
  /// "VORTIL:datatypes:valueOutsideValidRange" for another number.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API LightingStrengthVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-1 double, 0 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes one element of any numeric class, from 0 to 1. Null gives null.
  ///
  /// Errors: "VORTIL:datatypes:invalidLightingStrength" for another class and another number of
  /// elements, "VORTIL:datatypes:valueOutsideValidRange" for another number.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API LightingStrengthJC final : public ArrayJavaConverter<LightingStrengthVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_LightingStrengthDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_LightingStrengthDataType_callback();

}  // namespace graphics::datatype
