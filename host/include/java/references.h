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
/// for a row of characters, a Boolean or a Double for a single logical or double, a double[] for
/// other real arrays of class double. Null for everything else, and where there is no Java machine.
[[nodiscard]] VGHOST_API jobject javaConvertVortilToClosestJavaObject(const vxArray* array);
/// The array that comes closest to a Java object, for the caller. Takes a global reference over,
/// also when it throws. 0 by 0 double for null and for an object of a class that it does not know.
[[nodiscard]] VGHOST_API vxArray* javaConvertJavaObjectToClosestVortilArray(jobject reference);
