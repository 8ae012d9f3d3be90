package com.lindgrove.vg.types;

/**
 * A colour. Red, green, blue and alpha are fractions from 0 to 1, and an alpha of 1 is opaque; the
 * property that takes the colour checks them.
 */
public record VGColor(double red, double green, double blue, double alpha) {
  /** Red, green, blue and alpha, in an array of the caller's. */
  public double[] getComponents() {
    return new double[] {red, green, blue, alpha};
  }
}
