package com.lindgrove.vg.types;

import java.util.Arrays;
import java.util.List;

/**
 * The styles that the lines of a plot go through in turn, each of a line such as "--", a marker
 * such as "o", or both. The property that takes them checks them.
 */
public final class VGLineStyles {
  private final List<String> lines;
  private final List<String> markers;

  private VGLineStyles(List<String> lines, List<String> markers) {
    this.lines = lines;
    this.markers = markers;
  }

  /**
   * Styles by their lines and their markers, which are two arrays of one length; "" stands for an
   * absent part.
   */
  public static VGLineStyles newInstance(String[] lines, String[] markers) {
    if (lines.length != markers.length) {
      throw new IllegalArgumentException(lines.length + " lines, " + markers.length + " markers");
    }
    return new VGLineStyles(List.of(lines), List.of(markers));
  }

  /** Each line with its marker behind it, in an array of the caller's. */
  public String[] getConcatenatedStyles() {
    String[] styles = new String[lines.size()];
    Arrays.setAll(styles, i -> lines.get(i) + markers.get(i));
    return styles;
  }

  @Override
  public boolean equals(Object other) {
    return other instanceof VGLineStyles that && lines.equals(that.lines)
        && markers.equals(that.markers);
  }

  @Override
  public int hashCode() {
    return 31 * lines.hashCode() + markers.hashCode();
  }

  @Override
  public String toString() {
    return "VGLineStyles[" + String.join(", ", getConcatenatedStyles()) + "]";
  }
}
