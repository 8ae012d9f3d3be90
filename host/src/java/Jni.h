#pragma once

/// What the host's own calls of Java share. A call that fails leaves no exception pending behind
/// it: it gives null.

#include <java/environment.h>
#include <jni.h>
#include <messages/ustring.h>
#include <vx/array.h>

#include <memory>

namespace vghost::java {

/// A local reference, deleted when its owner ends.
struct DeleteLocal {
  void operator()(jobject reference) const noexcept;
};
template <class Referred>
using Local = std::unique_ptr<Referred, DeleteLocal>;

/// Whether the last call has thrown. The exception goes.
bool clearException(JNIEnv& java) noexcept;

/// Owns what a call gave, unless it has thrown.
template <class Referred>
Local<Referred> unlessThrown(JNIEnv& java, Referred* result) noexcept {
  Local<Referred> owner(result);
  if (clearException(java)) owner.reset();
  return owner;
}

Local<_jclass> findClass(JNIEnv& java, const char* path) noexcept;
/// False also if there is no such class.
bool isInstance(JNIEnv& java, jobject object, const char* classPath) noexcept;

/// The units of a text as they stand.
fl::ustring unitsOf(JNIEnv& java, jstring text);

/// A 1 by n char array for the caller; 0 by 0 for an empty text.
vxArray* newTextRow(JNIEnv& java, jstring text);
/// A 1 by n double array for the caller.
vxArray* newNumberRow(JNIEnv& java, jdoubleArray numbers);

}  // namespace vghost::java
