#include "Jni.h"

#include <java/references.h>

#include <cstddef>

namespace vghost::java {

void DeleteLocal::operator()(jobject reference) const noexcept {
  jvi::JObjectDtor::destroy(reference);
}

bool clearException(JNIEnv& java) noexcept {
  if (!java.ExceptionCheck()) return false;
  java.ExceptionClear();
  return true;
}

Local<_jclass> findClass(JNIEnv& java, const char* path) noexcept {
  return unlessThrown(java, java.FindClass(path));
}

bool isInstance(JNIEnv& java, jobject object, const char* classPath) noexcept {
  const Local<_jclass> found = findClass(java, classPath);
  return found && java.IsInstanceOf(object, found.get());
}

fl::ustring unitsOf(JNIEnv& java, jstring text) {
  const jsize length = java.GetStringLength(text);
  fl::ustring units(static_cast<std::size_t>(length), 0);
  java.GetStringRegion(text, 0, length, units.data());
  clearException(java);
  return units;
}

vxArray* newTextRow(JNIEnv& java, jstring text) {
  const fl::ustring units = unitsOf(java, text);
  return vxCreateString_UTF16(units.data(), units.size());
}

vxArray* newNumberRow(JNIEnv& java, jdoubleArray numbers) {
  const jsize length = java.GetArrayLength(numbers);
  vxArray* const row = vxCreateDoubleMatrix(1, static_cast<std::size_t>(length), vxREAL);
  if (length != 0)
    java.GetDoubleArrayRegion(numbers, 0, length, static_cast<jdouble*>(vxGetWritableData(row)));
  clearException(java);
  return row;
}

}  // namespace vghost::java
