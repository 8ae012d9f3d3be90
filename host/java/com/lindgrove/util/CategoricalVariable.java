package com.lindgrove.util;

import java.util.Arrays;
import java.util.List;
import java.util.Objects;

/**
 * One choice out of several, together with all of them, so that an editor can offer them. Each
 * choice has a number, a name, and a label, which is the name in the language of the user.
 */
public final class CategoricalVariable {
  private final int value;
  private final int[] values;
  private final List<String> names;
  private final List<String> labels;

  private CategoricalVariable(int value, int[] values, List<String> names, List<String> labels) {
    this.value = value;
    this.values = values;
    this.names = names;
    this.labels = labels;
    if (names.size() != values.length || labels.size() != values.length) {
      throw new IllegalArgumentException(
          values.length + " values, " + names.size() + " names, " + labels.size() + " labels");
    }
    if (index() < 0) throw new IllegalArgumentException(value + " is none of the values");
  }

  /** The choice of one of the values, which has a name and a label at the same index each. */
  public static CategoricalVariable newInstance(
      int value, int[] values, String[] names, String[] labels) {
    return new CategoricalVariable(value, values.clone(), List.of(names), List.of(labels));
  }

  /** The same choices with another one chosen, which has to be one of the values. */
  public CategoricalVariable withValue(int newValue) {
    return new CategoricalVariable(newValue, values, names, labels);
  }

  public int getValue() { return value; }

  /** The name of what is chosen. */
  public String getName() { return names.get(index()); }

  /** The label of what is chosen. */
  public String getLabel() { return labels.get(index()); }

  /** All values, in an array of the caller's. */
  public int[] getValues() { return values.clone(); }

  /** The names of all values, in an array of the caller's. */
  public String[] getNames() { return names.toArray(new String[0]); }

  /** The labels of all values, in an array of the caller's. */
  public String[] getLabels() { return labels.toArray(new String[0]); }

  /** The first index of the value, -1 if it is not there. */
  private int index() {
    for (int i = 0; i < values.length; ++i) {
      if (values[i] == value) return i;
    }
    return -1;
  }

  @Override
  public boolean equals(Object other) {
    return other instanceof CategoricalVariable that && value == that.value
        && Arrays.equals(values, that.values) && names.equals(that.names)
        && labels.equals(that.labels);
  }

  @Override
  public int hashCode() {
    return Objects.hash(value, Arrays.hashCode(values), names, labels);
  }

  @Override
  public String toString() {
    return "CategoricalVariable[" + getLabel() + "]";
  }
}
