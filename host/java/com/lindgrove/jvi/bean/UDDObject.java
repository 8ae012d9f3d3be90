package com.lindgrove.jvi.bean;

import java.lang.ref.Cleaner;
import java.lang.ref.Reference;

/**
 * An object of the host's class system, which holds a count on it as long as this object lives. Two
 * are equal if they stand for the same object.
 */
public final class UDDObject {
  private static final Cleaner CLEANER = Cleaner.create();

  static {
    String library = System.getProperty("vghost.library");
    if (library != null) System.load(library);
  }

  private final long number; // names the object in the host's table

  /** Called by the host, which gives the number away. */
  private UDDObject(long number) {
    this.number = number;
    CLEANER.register(this, releasing(number));
  }

  @Override
  public boolean equals(Object other) {
    if (!(other instanceof UDDObject that)) return false;
    try {
      return areSame(number, that.number);
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

  /** The name of the object. */
  @Override
  public String toString() {
    try {
      return name(number);
    } finally {
      Reference.reachabilityFence(this);
    }
  }

  /** Static, so that what the cleaner keeps does not keep the object. */
  private static Runnable releasing(long number) { return () -> release(number); }

  /** On any thread; the host gives its count up later, on its own. */
  private static native void release(long number);

  private static native boolean areSame(long a, long b);

  private static native int hash(long number);

  private static native String name(long number);
}
