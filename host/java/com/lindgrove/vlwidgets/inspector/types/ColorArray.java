package com.lindgrove.vlwidgets.inspector.types;

import java.awt.Color;
import java.util.List;

/** Colours in the order in which they are used. They are equal where their bytes are. */
public final class ColorArray {
  private final List<Color> colors;

  private ColorArray(List<Color> colors) { this.colors = colors; }

  public static ColorArray newInstance(Color[] colors) { return new ColorArray(List.of(colors)); }

  /** The colours, in an array of the caller's. */
  public Color[] getColorArray() { return colors.toArray(new Color[0]); }

  @Override
  public boolean equals(Object other) {
    return other instanceof ColorArray that && colors.equals(that.colors);
  }

  @Override
  public int hashCode() {
    return colors.hashCode();
  }

  @Override
  public String toString() {
    return "ColorArray" + colors;
  }
}
