package com.lindgrove.vg.types;

/** A number; the property that takes it checks its range. */
public record VGDouble(double value) {
  public double getValue() {
    return value;
  }
}
