#pragma once

#include <graphics/datatype/export.h>
#include <java/environment.h>

#include <string>

class _jobject;             // NOLINT(bugprone-reserved-identifier): the name is Java's
class _jstring;             // NOLINT(bugprone-reserved-identifier): the name is Java's
using jobject = _jobject*;  // as in jni.h
using jstring = _jstring*;

namespace graphics::datatype {

/// How a native entry lets Java code test a conversion: the entry makes a tester and calls one of
/// its three operations, out of which no C++ exception comes.
///
///     extern "C" JNIEXPORT jobject JNICALL
///     Java_example_PointTester_get(JNIEnv* java, jobject caller) {
///       return PointTester().testGetter(java, caller);
///     }
///
/// An operation works in scopes of its own for the host's temporary arrays and memory, and with the
/// host's error mode at vxERROR_MODE_RAISE. A host error becomes a pending
/// java.lang.IllegalArgumentException, "<identifier> <text>"; anything else a
/// java.lang.RuntimeException. Null is returned then.
class VGDT_API ConverterTester {
 public:
  virtual ~ConverterTester();

  /// What getter() returns.
  jobject testGetter(JNIEnv* java, jobject caller);
  /// Calls setter().
  void testSetter(JNIEnv* java, jobject caller, jobject value);
  /// What doConvertToJavaFromString() returns for the text in UTF-8; null for null.
  jobject convertToJavaFromString(JNIEnv* java, jobject caller, jstring text);

 protected:
  virtual jobject getter(JNIEnv* java, jobject caller) = 0;
  virtual void setter(JNIEnv* java, jobject caller, jobject value) = 0;
  /// Leaves a java.lang.UnsupportedOperationException pending and returns null, unless a tester
  /// does it.
  virtual jobject doConvertToJavaFromString(JNIEnv* java, jobject caller,
                                            const std::string& text) const;
};

}  // namespace graphics::datatype
