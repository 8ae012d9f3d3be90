#pragma once

#include "Jni.h"

namespace vghost::java {

/// Makes the exception that is being handled one of Java's: an OutOfMemoryError where memory has
/// failed, otherwise an IllegalStateException with the text. One of Java's that is pending stays.
void throwToJava(JNIEnv& java) noexcept;

/// The body of a native method, which no exception may leave. After one the result is zero.
template <class Work>
auto guarded(JNIEnv* java, const Work& work) noexcept -> decltype(work()) {
  try {
    return work();
  } catch (...) {
    throwToJava(*java);
    return decltype(work())();
  }
}

/// A Java text of UTF-8, with an exception pending if it is null.
jstring newJavaText(JNIEnv* java, const std::string& utf8);

}  // namespace vghost::java
