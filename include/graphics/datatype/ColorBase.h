#pragma once

#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/export.h>
#include <gui_objects/AutoPtr.h>
#include <gui_objects/Color.h>

namespace graphics::datatype {

/// Checks the channels of a colour in the order of the arguments.
///
/// Errors: "VORTIL:vg:ColorBase:BadColorValue" for the first that is not from 0 to 1; NaN is not.
VGDT_API void validateRGBAColorRange(const double& red, const double& green, const double& blue,
                                     const double& alpha);

/// A colour of four channels, each from 0 to 1. Alpha is the opacity: 1 is opaque.
///
///     ColorBase color(0.2, 0.4, 0.6, 0.5);
///     color.setColorFromString("red");      // alpha stays 0.5
///     color.setColorFromString("[1 0 0]");  // alpha becomes 1
class VGDT_API ColorBase : public HostAllocated {
 public:
  /// Black and opaque.
  ColorBase() = default;
  /// Errors: as validateRGBAColorRange().
  ColorBase(double red, double green, double blue, double alpha);

  /// Channel by channel, and exact.
  bool operator==(const ColorBase& other) const noexcept {
    return red_ == other.red_ && green_ == other.green_ && blue_ == other.blue_ &&
           alpha_ == other.alpha_;
  }

  double getRed() const noexcept { return red_; }
  double getGreen() const noexcept { return green_; }
  double getBlue() const noexcept { return blue_; }
  double getAlpha() const noexcept { return alpha_; }

  /// Errors: "VORTIL:vg:ColorBase:BadColorValue" for a number that is not from 0 to 1, and the
  /// channel keeps its value. The same holds for the other three.
  void setRed(double red);
  void setGreen(double green);
  void setBlue(double blue);
  void setAlpha(double alpha);

  gui_objects::Color4d getAsColor4d() const;
  gui_objects::Color4b getAsColor4b() const;
  /// The four bytes as a new 4-by-1 array of class uint8.
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> getColorAsArray() const;

  /// Reads a colour name, as ColorNameTable::getColorValue finds it, which leaves alpha alone; or
  /// three numbers in brackets, which make the colour opaque; or four. The channels are set one
  /// after the other: those before a bad one keep their new values.
  ///
  /// Errors, the same for whatever derives from this class:
  /// "VORTIL:datatypes:RGBAColor:AmbiguousName" for a text that begins several names,
  /// "VORTIL:datatypes:RGBAColor:ParseError" for one that is neither name nor numbers and for null,
  /// "VORTIL:vg:ColorBase:BadColorValue" for a number, also one of a name, that is not from 0 to 1.
  void setColorFromString(const char* text);

 private:
  double red_ = 0;
  double green_ = 0;
  double blue_ = 0;
  double alpha_ = 1;
};

/// A colour that may have a style in its place: a word that says what to draw. `Style` is a table
/// of such words, of which kColor stands for the colour itself and kNone for nothing.
///
/// The types of such colours convert them alike. A text is read as a word of the table but "color",
/// or a beginning of only one, in any case and with white space around it; any other text, and
/// null, by ColorBase::setColorFromString. A colour prints as "[ 1 0.5 0 ]" and becomes a 1-by-3
/// double array; alpha does not show. A style is its word; one that has no word is no text and an
/// empty char array. Null is no text and an empty double array. The caller frees texts with utFree,
/// and destroys arrays.
///
///     StyledColor<MarkerColorStyle> color(1, 0, 0, 0);
///     color.isVisible();  // false, since alpha is 0
///     color.setStyle(MarkerColorStyle::kFlat);
///     color.isVisible();  // true
template <class Style>
class StyledColor : public ColorBase {
 public:
  using StyleTable = Style;
  using value = typename Style::value;
  /// The style in which the channels are the value.
  static constexpr value kNumeric = Style::kColor;

  /// Black and opaque, with the style kColor.
  StyledColor() = default;
  /// With the style kColor. Errors: as validateRGBAColorRange().
  StyledColor(double red, double green, double blue, double alpha)
      : ColorBase(red, green, blue, alpha) {}

  value getStyle() const noexcept { return style_; }
  void setStyle(value style) noexcept { style_ = style; }

  bool isVisible() const noexcept {
    return style_ == kNumeric ? getAlpha() > 0 : style_ != Style::kNone;
  }

  /// The channels count only in the style kColor.
  bool operator==(const StyledColor& other) const noexcept {
    return style_ == other.style_ && (style_ != kNumeric || ColorBase::operator==(other));
  }

 private:
  value style_ = kNumeric;
};

}  // namespace graphics::datatype
