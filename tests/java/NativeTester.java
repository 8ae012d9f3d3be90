package com.lindgrove.test.vg.types;

/** The native entries of one tested type, which hold one value of it in the library. */
interface NativeTester {
  String getJavaTypeName();
  String getNativeTypeName();
  Object get();
  void set(Object value);
  /** Only "Curvature" and "ImageXYData" have this entry. */
  Object convertToJavaFromString(String text);

  /** The tester of a type such as "Position". */
  static NativeTester of(String type) throws ReflectiveOperationException {
    String name = NativeTester.class.getPackageName() + "." + type + "NativeTester";
    return (NativeTester) Class.forName(name).getDeclaredConstructor().newInstance();
  }
}
