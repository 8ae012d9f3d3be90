package com.lindgrove.test.vg.types;

final class Utils {
  private Utils() {}

  static native void initializeVgdatatypesLib();
  static native void cleanupVgdatatypesLib();
}
