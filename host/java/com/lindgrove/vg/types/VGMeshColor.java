package com.lindgrove.vg.types;

import java.util.Objects;

/**
 * The colour of a mesh: a colour, or one of the styles 0 "none", 1 "flat", 2 "interp" and 3
 * "texturemap". The property that takes it checks both.
 */
public final class VGMeshColor {
  private static final int COLOR = -1;

  private final int style;
  private final VGColor color; // null for a style

  /** A style; the second number is not used. */
  public VGMeshColor(int style, int unused) {
    this.style = style;
    this.color = null;
  }

  /** A colour, by fractions from 0 to 1; the last number is not used. */
  public VGMeshColor(double red, double green, double blue, double alpha, int unused) {
    this.style = COLOR;
    this.color = new VGColor(red, green, blue, alpha);
  }

  /** The style; -1 for a colour. */
  public int getStyle() { return style; }

  /** Red, green, blue and alpha, in an array of the caller's; an empty one for a style. */
  public double[] getComponents() { return color == null ? new double[0] : color.getComponents(); }

  @Override
  public boolean equals(Object other) {
    return other instanceof VGMeshColor that && style == that.style
        && Objects.equals(color, that.color);
  }

  @Override
  public int hashCode() {
    return Objects.hash(style, color);
  }

  @Override
  public String toString() {
    return "VGMeshColor[" + (color == null ? "style=" + style : color) + "]";
  }
}
