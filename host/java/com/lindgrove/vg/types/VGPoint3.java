package com.lindgrove.vg.types;

/** A point in space, in whatever unit its property has; any double is taken. */
public record VGPoint3(double x, double y, double z) {
  /** The three coordinates, x first, in an array of the caller's. */
  public double[] getComponents() {
    return new double[] {x, y, z};
  }
}
