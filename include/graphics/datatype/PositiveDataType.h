#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/RangedScalar.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// A finite number above 0, 1 by default.
///
///     asDouble(Positive(0.5));  // 0.5
class VGDT_API Positive final : public RangedScalar<Positive> {
  using RangedScalar::RangedScalar;
};

VGDT_API double asDouble(const Positive& value) noexcept;
/// As the host compares numbers: see gui_objects/nearlyEqual.h.
VGDT_API bool nearlyEqual(const Positive& a, const Positive& b) noexcept;

/// The type "Positive": 1 by default. Values are compared with nearlyEqual().
class VGDT_API PositiveDataType final : public PropertyDataType<PositiveDataType, Positive> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Positive";
};

/// Between a C string and a word.
class VGDT_API PositiveSC final : public vcos::COSTypeConversion {
 public:
  /// "[0.5]" with six digits, empty for null; to be freed with utFree.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a number above 0, with or without brackets.
  ///
  /// Errors, no host errors but each an InvalidValueException with the identifier:
  /// "VORTIL:datatypes:invalidValuePositive" for any other text and for null,
  /// "VORTIL:datatypes:valueOutsideValidRange" for another number.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API PositiveVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-1 double, 1 for null. The array is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes one element of any numeric class, above 0. Null gives null.
  ///
  /// Errors: "VORTIL:datatypes:invalidPositive" for another class and another number of
  /// elements, "VORTIL:datatypes:valueOutsideValidRange" for another number.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGDouble and a word.
class VGDT_API PositiveJC final : public AbstractJavaConverter {
 public:
  /// Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "Invalid value for Positive type: NULL";
  /// "VORTIL:datatypes:valueOutsideValidRange".
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_PositiveDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_PositiveDataType_callback();

}  // namespace graphics::datatype
