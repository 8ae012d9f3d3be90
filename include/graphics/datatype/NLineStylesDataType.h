#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

#include <string>
#include <vector>

namespace graphics::datatype {

/// A line style, a marker, or both: "-", "o", "--square". The text is kept as it came. What follows
/// a NUL in it is not read and does not go back, but counts when styles are compared.
class VGDT_API LineMarkerStyle final {
 public:
  /// Errors: "VORTIL:vgdatatypes:InvalidMarkerLineStyle" with the text for one that the host's
  /// stringToColorMarkerLineStyle() does not read, that names a colour, or that names neither a
  /// line nor a marker.
  explicit LineMarkerStyle(std::string text);

  const char* getString() const noexcept { return text_.c_str(); }
  const std::string& getLineStyle() const noexcept { return lineStyle_; }      ///< may be empty
  const std::string& getMarkerStyle() const noexcept { return markerStyle_; }  ///< may be empty

  /// The texts count, not what they mean: "-o" is not "o-".
  bool operator==(const LineMarkerStyle& other) const noexcept { return text_ == other.text_; }

 private:
  std::string text_;
  std::string lineStyle_;
  std::string markerStyle_;
};

/// Line styles that a property goes through in turn. A value knows whether it came as a text or as
/// a cell array, and goes back as it came.
///
///     const NLineStyles styles({"-", "--", ":"});
///     styles.getStyles()[1].getLineStyle();  // "--"
class VGDT_API NLineStyles final {
 public:
  /// The single style "-".
  NLineStyles();
  /// Takes a char row or column with a "|" between two styles; another char array, of which each
  /// row is a style up to its first NUL, blanks and all; or a cell array of char arrays, each of
  /// which is one style.
  ///
  /// Errors: "VORTIL:vgdatatypes:InvalidInput" for null, for another class and for such an element,
  /// "VORTIL:vgdatatypes:NotEnoughStyles" for an empty array, those of LineMarkerStyle.
  explicit NLineStyles(const vxArray* array);
  /// Each text is one style. Errors: "VORTIL:vgdatatypes:NotEnoughStyles" for none, those of
  /// LineMarkerStyle.
  explicit NLineStyles(const std::vector<std::string>& texts);
  NLineStyles(const NLineStyles& other);
  /// Kept: a value that is assigned to itself loses its styles.
  NLineStyles& operator=(const NLineStyles& other);  // NOLINT: without a test for that

  /// Adds the styles of the other, and takes its form.
  void copy(const NLineStyles& other);
  /// Takes all styles away; the form stays.
  void destroy() noexcept;

  const std::vector<LineMarkerStyle>& getStyles() const noexcept { return styles_; }

  /// Whether both came in the same form with the same styles in the same order.
  bool operator==(const NLineStyles& other) const noexcept {
    return this == &other || (form_ == other.form_ && styles_ == other.styles_);
  }

  /// The styles as an array in the form that they came in: a char matrix with a row for each and
  /// blanks behind the shorter ones, or an n-by-1 cell array. It is the caller's. The constructor
  /// does not take every such matrix: blanks are no part of a style, and a single column is read as
  /// one text.
  ///
  /// Errors: a Lindgrove::System::OutOfMemoryException_DEPRECATED, or what else the host throws
  /// when memory fails.
  vxArray* getMatrixRepresentation() const;

 private:
  enum class Form : int { kText, kCell };

  std::vector<LineMarkerStyle> styles_;
  Form form_ = Form::kText;
};

/// The type "NLineStyles": the single style "-" by default.
class VGDT_API NLineStylesDataType final
    : public PropertyDataType<NLineStylesDataType, NLineStyles> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.NLineStyles";
};

/// Between a C string and a word.
class VGDT_API NLineStylesSC final : public vcos::COSTypeConversion {
 public:
  /// Always null: the type has no text form.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes "-|--" or "{'-', '--'}". "", "[]", "{}" and null give the default value.
  ///
  /// Errors: those of the constructor from an array.
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API NLineStylesVC final : public vcos::COSTypeConversion {
 public:
  /// What NLineStyles::getMatrixRepresentation() gives; null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what the constructor takes. Errors: those of the constructor.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGLineStyles and a word.
class VGDT_API NLineStylesJC final : public AbstractJavaConverter {
 public:
  /// Lines and markers as two lists, with "" for an absent part. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes the concatenated styles. Errors: those of NLineStyles.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_NLineStylesDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_NLineStylesDataType_callback();

}  // namespace graphics::datatype
