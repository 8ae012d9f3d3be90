#include <java/references.h>

#include <jni.h>
#include <vx/array.h>

#include <cstddef>
#include <memory>

namespace {

/// A local reference, deleted when its owner ends.
struct DeleteLocal {
  void operator()(jobject reference) const noexcept { jvi::JObjectDtor::destroy(reference); }
};
using Local = std::unique_ptr<_jobject, DeleteLocal>;

struct DeleteGlobal {
  void operator()(jobject reference) const noexcept { vljDeleteGlobalRef(reference, false); }
};
using Global = std::unique_ptr<_jobject, DeleteGlobal>;

/// Nothing of a failing call stays pending.
jobject withoutException(JNIEnv& java, jobject result) {
  if (!java.ExceptionCheck()) return result;
  java.ExceptionClear();
  jvi::JObjectDtor::destroy(result);
  return nullptr;
}

Local findClass(JNIEnv& java, const char* name) {
  return Local(withoutException(java, java.FindClass(name)));
}

bool isInstance(JNIEnv& java, jobject object, const char* className) {
  const Local found = findClass(java, className);
  return found && java.IsInstanceOf(object, static_cast<jclass>(found.get()));
}

jobject newString(JNIEnv& java, const vxArray* row) {
  static constexpr jchar kNothing[] = {0};
  const auto* units = static_cast<const jchar*>(vxGetData(row));
  return java.NewString(units ? units : kNothing, static_cast<jsize>(vxGetNumberOfElements(row)));
}

jobject newNumbers(JNIEnv& java, const vxArray* array) {
  const auto length = static_cast<jsize>(vxGetNumberOfElements(array));
  const jdoubleArray numbers = java.NewDoubleArray(length);
  if (numbers)
    java.SetDoubleArrayRegion(numbers, 0, length, static_cast<const jdouble*>(vxGetData(array)));
  return numbers;
}

/// The boxed form of a value, by the static valueOf() of its class.
template <class Value>
jobject newBox(JNIEnv& java, const char* className, const char* signature, Value value) {
  const Local box = findClass(java, className);
  if (!box) return nullptr;
  const auto type = static_cast<jclass>(box.get());
  const jmethodID valueOf = java.GetStaticMethodID(type, "valueOf", signature);
  return valueOf ? java.CallStaticObjectMethod(type, valueOf, value) : nullptr;
}

jobject newClosest(JNIEnv& java, const vxArray* array) {
  const bool isMatrix = vxGetNumberOfDimensions(array) == 2;
  switch (vxGetClassID(array)) {
    case vxCHAR_CLASS:
      return isMatrix && (vxIsEmpty(array) || vxGetM(array) == 1) ? newString(java, array)
                                                                  : nullptr;
    case vxLOGICAL_CLASS:
      return vxIsScalar(array) ? newBox(java, "java/lang/Boolean", "(Z)Ljava/lang/Boolean;",
                                        static_cast<jboolean>(*vxGetLogicals(array)))
                               : nullptr;
    case vxDOUBLE_CLASS:
      if (vxIsComplex(array)) return nullptr;
      return vxIsScalar(array)
                 ? newBox(java, "java/lang/Double", "(D)Ljava/lang/Double;", vxGetScalar(array))
                 : newNumbers(java, array);
    default:
      return nullptr;
  }
}

vxArray* noNumbers() {
  return vxCreateDoubleMatrix(0, 0, vxREAL);
}

vxArray* newText(JNIEnv& java, jstring text) {
  struct Release {
    JNIEnv& java;
    jstring text;
    void operator()(const jchar* units) const { java.ReleaseStringChars(text, units); }
  };
  const std::unique_ptr<const jchar, Release> units(java.GetStringChars(text, nullptr),
                                                    Release{java, text});
  if (!units) return noNumbers();
  return vxCreateString_UTF16(units.get(), static_cast<std::size_t>(java.GetStringLength(text)));
}

vxArray* newRow(JNIEnv& java, jdoubleArray numbers) {
  const jsize length = java.GetArrayLength(numbers);
  vxArray* const row = vxCreateDoubleMatrix(1, static_cast<std::size_t>(length), vxREAL);
  if (length != 0)
    java.GetDoubleArrayRegion(numbers, 0, length, static_cast<jdouble*>(vxGetWritableData(row)));
  return row;
}

jmethodID methodOf(JNIEnv& java, jobject object, const char* name, const char* signature) {
  const Local type(java.GetObjectClass(object));
  return java.GetMethodID(static_cast<jclass>(type.get()), name, signature);
}

vxArray* newLogical(JNIEnv& java, jobject object) {
  const jmethodID read = methodOf(java, object, "booleanValue", "()Z");
  vxArray* const array = vxCreateNumericMatrix(1, 1, vxLOGICAL_CLASS, vxREAL);
  *static_cast<bool*>(vxGetWritableData(array)) = java.CallBooleanMethod(object, read) != 0;
  return array;
}

vxArray* newNumber(JNIEnv& java, jobject object) {
  const jmethodID read = methodOf(java, object, "doubleValue", "()D");
  return vxCreateDoubleScalar(java.CallDoubleMethod(object, read));
}

}  // namespace

jobject vljNewGlobalRef(jobject object, bool) noexcept {
  JNIEnv* const java = object ? GetJNIEnv() : nullptr;
  return java ? java->NewGlobalRef(object) : nullptr;
}

void vljDeleteGlobalRef(jobject reference, bool) noexcept {
  JNIEnv* const java = reference ? GetJNIEnv() : nullptr;
  if (java) java->DeleteGlobalRef(reference);
}

void jvi::JObjectDtor::destroy(jobject reference) noexcept {
  JNIEnv* const java = reference ? GetJNIEnv() : nullptr;
  if (java) java->DeleteLocalRef(reference);
}

jobject javaConvertVortilToClosestJavaObject(const vxArray* array) {
  JNIEnv* const java = array ? GetJNIEnv() : nullptr;
  return java ? withoutException(*java, newClosest(*java, array)) : nullptr;
}

vxArray* javaConvertJavaObjectToClosestVortilArray(jobject reference) {
  const Global object(reference);
  JNIEnv* const java = reference ? GetJNIEnv() : nullptr;
  if (!java) return noNumbers();
  if (isInstance(*java, reference, "java/lang/String"))
    return newText(*java, static_cast<jstring>(reference));
  if (isInstance(*java, reference, "java/lang/Boolean")) return newLogical(*java, reference);
  if (isInstance(*java, reference, "java/lang/Number")) return newNumber(*java, reference);
  if (isInstance(*java, reference, "[D"))
    return newRow(*java, static_cast<jdoubleArray>(reference));
  return noNumbers();
}
