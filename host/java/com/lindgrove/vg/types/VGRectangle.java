package com.lindgrove.vg.types;

/**
 * A rectangle by its lower left corner and its size, in whatever unit its property has; any double
 * is taken.
 */
public record VGRectangle(double x, double y, double width, double height) {
  /** x, y, width and height, in an array of the caller's. */
  public double[] getComponents() {
    return new double[] {x, y, width, height};
  }
}
