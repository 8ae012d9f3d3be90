package com.lindgrove.jvi.types;

import java.lang.ref.Cleaner;
import java.lang.ref.Reference;
import java.util.Objects;

/**
 * An array of the host, which keeps it as long as this object lives. References are equal if their
 * arrays are.
 */
public final class VLArrayRef {
  private static final Cleaner CLEANER = Cleaner.create();

  static {
    String library = System.getProperty("vghost.library");
    if (library != null) System.load(library);
  }

  private final long number; // names the array in the host's table

  /** Called by the host, which gives the number away. */
  private VLArrayRef(long number) {
    this.number = number;
    CLEANER.register(this, releasing(number));
  }

  /** A row of class double. */
  public static VLArrayRef of(double[] row) {
    return new VLArrayRef(newNumbers(Objects.requireNonNull(row)));
  }

  /** A row of characters. */
  public static VLArrayRef of(String row) {
    return new VLArrayRef(newText(Objects.requireNonNull(row)));
  }

  @Override
  public boolean equals(Object other) {
    if (!(other instanceof VLArrayRef that)) return false;
    try {
      return areEqual(number, that.number);
    } finally {
      Reference.reachabilityFence(this);
      Reference.reachabilityFence(that);
    }
  }

  @Override
  public int hashCode() {
    try {
      return hash(number);
    } finally {
      Reference.reachabilityFence(this);
    }
  }

  /** The array as a literal, such as "[1 2 3]". */
  @Override
  public String toString() {
    try {
      return literal(number);
    } finally {
      Reference.reachabilityFence(this);
    }
  }

  /** Static, so that what the cleaner keeps does not keep the object. */
  private static Runnable releasing(long number) { return () -> release(number); }

  private static native long newNumbers(double[] row);

  private static native long newText(String row);

  /** On any thread; the host destroys the array later, on its own. */
  private static native void release(long number);

  private static native boolean areEqual(long a, long b);

  private static native int hash(long number);

  private static native String literal(long number);
}
