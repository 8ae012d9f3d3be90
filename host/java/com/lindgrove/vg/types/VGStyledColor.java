package com.lindgrove.vg.types;

import java.util.List;
import java.util.Objects;

/**
 * A colour or a style, together with the names of all styles that may be chosen. The property that
 * takes it checks both.
 */
public final class VGStyledColor {
  private final String styleName; // null for a colour
  private final VGColor color; // null for a style
  private final List<String> styles;

  private VGStyledColor(String styleName, VGColor color, String[] styles) {
    this.styleName = styleName;
    this.color = color;
    this.styles = List.of(styles);
  }

  /** A style by its name. */
  public static VGStyledColor newInstance(String styleName, String[] styles) {
    return new VGStyledColor(Objects.requireNonNull(styleName), null, styles);
  }

  /** A colour, by fractions from 0 to 1. */
  public static VGStyledColor newInstance(
      double red, double green, double blue, double alpha, String[] styles) {
    return new VGStyledColor(null, new VGColor(red, green, blue, alpha), styles);
  }

  public boolean isStyle() { return color == null; }

  /** The name of the style; null for a colour. */
  public String getStyleName() { return styleName; }

  /** Red, green, blue and alpha, in an array of the caller's; an empty one for a style. */
  public double[] getComponents() { return color == null ? new double[0] : color.getComponents(); }

  /** The names that may be chosen, in an array of the caller's. */
  public String[] getStyles() { return styles.toArray(new String[0]); }

  @Override
  public boolean equals(Object other) {
    return other instanceof VGStyledColor that && Objects.equals(styleName, that.styleName)
        && Objects.equals(color, that.color) && styles.equals(that.styles);
  }

  @Override
  public int hashCode() {
    return Objects.hash(styleName, color, styles);
  }

  @Override
  public String toString() {
    return "VGStyledColor[" + (isStyle() ? "style=" + styleName : color) + "]";
  }
}
