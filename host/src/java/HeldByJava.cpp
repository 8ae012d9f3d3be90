#include "HeldByJava.h"

#include <vx/errors.h>

#include <new>

namespace vghost::java {
namespace {

constexpr const char* kConversionError = "VORTIL:class:JavaConversionError";

void requireClass(JNIEnv& java, const char* path) {
  if (!findClass(java, path))
    vxErrMsgIdAndTxt(kConversionError,
                     "JNI cannot find class %s: vgdatatypes-host.jar is not on the class path, or "
                     "its library could not be loaded",
                     path);
}

}  // namespace

const NumberedClass::Found* NumberedClass::find(JNIEnv& java) const noexcept {
  if (const Found* const known = found_.load(std::memory_order_acquire)) return known;
  const Local<_jclass> type = findClass(java, path);
  if (!type) return nullptr;
  const jmethodID constructor = java.GetMethodID(type.get(), "<init>", "(J)V");
  const jfieldID number = constructor ? java.GetFieldID(type.get(), "number", "J") : nullptr;
  if (clearException(java) || !number) return nullptr;
  const auto global = static_cast<jclass>(java.NewGlobalRef(type.get()));
  auto* const made = global ? new (std::nothrow) Found{global, constructor, number} : nullptr;
  const Found* first = nullptr;
  if (made && found_.compare_exchange_strong(first, made, std::memory_order_acq_rel)) return made;
  java.DeleteGlobalRef(global);
  delete made;
  return first;
}

Local<_jobject> NumberedClass::create(JNIEnv& java, jlong number) const noexcept {
  const Found* const found = find(java);
  jobject const object = found ? java.NewObject(found->type, found->constructor, number) : nullptr;
  return unlessThrown(java, object);
}

std::optional<jlong> NumberedClass::numberOf(JNIEnv& java, jobject object) const noexcept {
  const Found* const found = object ? find(java) : nullptr;
  if (!found || !java.IsInstanceOf(object, found->type)) return {};
  return java.GetLongField(object, found->number);
}

jlong NumberedClass::requireNumberOf(JNIEnv& java, jobject object) const {
  if (const auto number = numberOf(java, object)) return *number;
  requireClass(java, path);
  vxErrMsgIdAndTxt(kConversionError, "Input parameter must be an instance of %s", dottedName);
}

void NumberedClass::raiseNotCreated(JNIEnv& java) const {
  requireClass(java, path);
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
