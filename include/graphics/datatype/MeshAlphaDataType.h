#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/PropertyDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The opacity of a mesh: a number from 0 to 1, or one of the words "flat", "interp" or
/// "texturemap".
///
///     MeshAlpha alpha(0.25);
///     alpha.setStyle(MeshAlphaStyle::kFlat);
///     alpha.isFlat();  // true; the number is kept and does not count
class VGDT_API MeshAlpha final : public HostAllocated, public MeshAlphaStyleTests<MeshAlpha> {
 public:
  using StyleTable = MeshAlphaStyle;
  using value = StyleTable::value;
  /// The style in which the number is the value.
  static constexpr value kNumeric = StyleTable::kAlpha;

  /// Opaque.
  MeshAlpha() = default;
  /// In the style kAlpha. Errors: as checkAlpha(), after the number has been stored.
  explicit MeshAlpha(double alpha);
  /// Errors: the same.
  MeshAlpha(value style, double alpha);

  /// The number counts only in the style kNumeric, and is compared exactly.
  bool operator==(const MeshAlpha& other) const noexcept {
    return style_ == other.style_ && (style_ != kNumeric || alpha_ == other.alpha_);
  }

  double getAlpha() const noexcept { return alpha_; }
  /// Errors: as checkAlpha(); the number stays as it was.
  void setAlpha(double alpha);
  value getStyle() const noexcept { return style_; }
  void setStyle(value style) noexcept { style_ = style; }

  /// Errors: "VORTIL:vg:dt_conv:Matrix_to_Real:ValueOutsideRange" for a number that is not from 0
  /// to 1; NaN is not.
  static void checkAlpha(double alpha);

 private:
  value style_ = kNumeric;
  double alpha_ = 1;
};

/// The type "MeshAlpha": 1 by default.
class VGDT_API MeshAlphaDataType final : public PropertyDataType<MeshAlphaDataType, MeshAlpha> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.MeshAlpha";
};

/// Between a C string and a word.
class VGDT_API MeshAlphaSC final : public vcos::COSTypeConversion {
 public:
  /// "0.5" or the word of the style, to be freed with utFree; null for null and for a style that
  /// has no word.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes a word of MeshAlphaStyle but "alpha", or a beginning of only one, in any case and with
  /// white space around it, which makes the number 1; or a text that begins with a number from 0 to
  /// 1: what follows it is ignored. Null gives null.
  ///
  /// Errors: "VORTIL:vg:dt_conv:Matrix_to_Real:ExpectedNumeric1" for any other text, also "alpha"
  /// and its beginnings; those of MeshAlpha::checkAlpha for the number.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API MeshAlphaVC final : public vcos::COSTypeConversion {
 public:
  /// 1-by-1 double, or the word of the style as a char array; 0-by-0 double for null. The array is
  /// the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes one number of any numeric class, from 0 to 1, and a char array with a text; null gives
  /// null.
  ///
  /// Errors: those of the text conversion for a char array; those of MeshAlpha::checkAlpha for a
  /// number; "VORTIL:vg:dt_conv:Matrix_to_Real:ExpectedNumeric" for anything else.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGAlpha and a word.
class VGDT_API MeshAlphaJC final : public AbstractJavaConverter {
 public:
  /// The int behind the style or the number is 0. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Errors: "Invalid style for MeshAlpha: ..."; those of MeshAlpha::checkAlpha.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_MeshAlphaDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_MeshAlphaDataType_callback();

}  // namespace graphics::datatype
