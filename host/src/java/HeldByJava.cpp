#include "HeldByJava.h"

#include <vx/errors.h>

namespace vghost::java {
namespace {

constexpr const char* kConversionError = "VORTIL:class:JavaConversionError";

}  // namespace

Local<_jobject> NumberedClass::create(JNIEnv& java, jlong number) const noexcept {
  const Local<_jclass> type = findClass(java, path);
  const jmethodID constructor = type ? java.GetMethodID(type.get(), "<init>", "(J)V") : nullptr;
  jobject const object = constructor ? java.NewObject(type.get(), constructor, number) : nullptr;
  return unlessThrown(java, object);
}

std::optional<jlong> NumberedClass::numberOf(JNIEnv& java, jobject object) const noexcept {
  const Local<_jclass> type = findClass(java, path);
  if (!object || !type || !java.IsInstanceOf(object, type.get())) return {};
  const jfieldID field = java.GetFieldID(type.get(), "number", "J");
  if (clearException(java) || !field) return {};
  return java.GetLongField(object, field);
}

jlong NumberedClass::requireNumberOf(JNIEnv& java, jobject object) const {
  if (const auto number = numberOf(java, object)) return *number;
  vxErrMsgIdAndTxt(kConversionError, "Input parameter must be an instance of %s", dottedName);
}

void NumberedClass::raiseNotCreated(JNIEnv& java) const {
  if (!findClass(java, path))
    vxErrMsgIdAndTxt(kConversionError,
                     "JNI cannot find class %s: vgdatatypes-host.jar is not on the class path",
                     path);
  vxErrMsgIdAndTxt(kConversionError, "JNI failed making an object of class %s", path);
}

JNIEnv& requireJava() {
  if (JNIEnv* const java = GetJNIEnv()) return *java;
  vxErrMsgIdAndTxt(kConversionError, "No Java machine runs in this process");
}

void raiseUnknownNumber(jlong number) {
  vxErrMsgIdAndTxt(kConversionError, "The Java object stands for nothing: number %lld was released",
                   static_cast<long long>(number));
}

}  // namespace vghost::java
