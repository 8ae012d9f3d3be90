#pragma once

/// References to Java objects, and values that cross as whatever comes closest.

#include <java/environment.h>
#include <ut/export.h>
#include <vx/array.h>

class _jobject;             // NOLINT(bugprone-reserved-identifier): the name is Java's
using jobject = _jobject*;  // as in jni.h

/// A new global reference; null for null, where there is no Java machine, and if memory fails.
/// `isWeak` is false.
VGHOST_API jobject vljNewGlobalRef(jobject object, bool isWeak) noexcept;
/// Deletes a global reference, on any thread. Nothing for null.
VGHOST_API void vljDeleteGlobalRef(jobject reference, bool isWeak) noexcept;

namespace jvi {

struct VGHOST_API JObjectDtor {
  /// Deletes a local reference. Nothing for null.
  static void destroy(jobject reference) noexcept;
};

}  // namespace jvi

/// A local reference to the Java object that comes closest to an array, for the caller: a String
/// for a row of characters, a String[] for a column of cells with such rows, a Boolean or a Double
/// for a single logical or double, a double[] for other real arrays of class double. For everything
/// else a VLArrayRef, or null if its class is not on the class path. Null where there is no Java
/// machine.
[[nodiscard]] VGHOST_API jobject javaConvertVortilToClosestJavaObject(const vxArray* array);
/// The array that comes closest to a Java object, for the caller: of the classes above, of any
/// other number, or of the UDDObject of an object. Takes a global reference over, also when it
/// throws. 0 by 0 double for null and for an object of a class that it does not know; a VLArrayRef
/// or a UDDObject whose number was released raises "VORTIL:class:JavaConversionError".
[[nodiscard]] VGHOST_API vxArray* javaConvertJavaObjectToClosestVortilArray(jobject reference);

namespace vghost {

/// Destroys the arrays and gives the objects back that Java has given up. The Java conversions
/// "any" and "handle scalar" begin with it; it has to run on the thread of the interpreter.
VGHOST_API void releaseGivenUpByJava() noexcept;

}  // namespace vghost
