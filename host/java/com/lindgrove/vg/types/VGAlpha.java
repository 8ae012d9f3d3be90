package com.lindgrove.vg.types;

/**
 * The opacity of a mesh: a number from 0, transparent, to 1, opaque, or one of the styles 0 "flat",
 * 1 "interp" and 2 "texturemap". The property that takes it checks both.
 */
public final class VGAlpha {
  private static final int NUMBER = -1;

  private final int style;
  private final double alpha;

  /** A style; the second number is not used. */
  public VGAlpha(int style, int unused) {
    this.style = style;
    this.alpha = 1;
  }

  /** A number; the second one is not used. */
  public VGAlpha(double alpha, int unused) {
    this.style = NUMBER;
    this.alpha = alpha;
  }

  /** The style; -1 for a number. */
  public int getStyle() { return style; }

  /** The number; 1 for a style. */
  public double getAlpha() { return alpha; }

  @Override
  public boolean equals(Object other) {
    return other instanceof VGAlpha that && style == that.style
        && Double.compare(alpha, that.alpha) == 0;
  }

  @Override
  public int hashCode() {
    return 31 * style + Double.hashCode(alpha);
  }

  @Override
  public String toString() {
    return "VGAlpha[" + (style == NUMBER ? "alpha=" + alpha : "style=" + style) + "]";
  }
}
