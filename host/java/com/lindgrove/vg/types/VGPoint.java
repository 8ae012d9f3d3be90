package com.lindgrove.vg.types;

/** A point in the plane, in whatever unit its property has; any double is taken. */
public record VGPoint(double x, double y) {
  /** The two coordinates, x first, in an array of the caller's. */
  public double[] getComponents() {
    return new double[] {x, y};
  }
}
