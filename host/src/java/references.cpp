#include "Jni.h"
#include "ReferenceConversions.h"

#include <java/references.h>
#include <vcos/TypeAccess.h>
#include <vx/objects.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>

namespace {

using namespace vghost::java;
using vcos::ArrayOwner;

struct DeleteGlobal {
  void operator()(jobject reference) const noexcept { vljDeleteGlobalRef(reference, false); }
};
using Global = std::unique_ptr<_jobject, DeleteGlobal>;

// --- to Java ------------------------------------------------------------------------------------

constexpr const char* kString = "java/lang/String";
constexpr const char* kStrings = "[Ljava/lang/String;";

jsize lengthOf(const vxArray* array) {
  return static_cast<jsize>(vxGetNumberOfElements(array));
}

bool isText(const vxArray* array) {
  return array && vxGetClassID(array) == vxCHAR_CLASS && vxGetNumberOfDimensions(array) == 2 &&
         (vxIsEmpty(array) || vxGetM(array) == 1);
}

bool isColumnOfTexts(const vxArray* array) {
  if (vxGetNumberOfDimensions(array) != 2 || vxGetN(array) != 1) return false;
  for (std::size_t i = 0; i < vxGetM(array); ++i)
    if (!isText(vxGetCell(array, i))) return false;
  return true;
}

Local<_jobject> newString(JNIEnv& java, const vxArray* text) {
  static constexpr jchar kNothing[] = {0};
  const auto* units = static_cast<const jchar*>(vxGetData(text));
  return unlessThrown<_jobject>(java, java.NewString(units ? units : kNothing, lengthOf(text)));
}

Local<_jobject> newStrings(JNIEnv& java, const vxArray* column) {
  const Local<_jclass> type = findClass(java, kString);
  if (!type) return nullptr;
  Local<_jobject> strings =
      unlessThrown<_jobject>(java, java.NewObjectArray(lengthOf(column), type.get(), nullptr));
  for (jsize i = 0; strings && i < lengthOf(column); ++i) {
    const auto string = newString(java, vxGetCell(column, static_cast<std::size_t>(i)));
    if (!string) return nullptr;
    java.SetObjectArrayElement(static_cast<jobjectArray>(strings.get()), i, string.get());
    if (clearException(java)) return nullptr;
  }
  return strings;
}

Local<_jobject> newNumbers(JNIEnv& java, const vxArray* array) {
  const jsize length = lengthOf(array);
  Local<_jobject> numbers = unlessThrown<_jobject>(java, java.NewDoubleArray(length));
  if (numbers && length != 0)
    java.SetDoubleArrayRegion(static_cast<jdoubleArray>(numbers.get()), 0, length,
                              static_cast<const jdouble*>(vxGetData(array)));
  return unlessThrown(java, numbers.release());
}

/// The boxed form of a value, by the static valueOf() of its class.
template <class Value>
Local<_jobject> newBox(JNIEnv& java, const char* className, const char* signature, Value value) {
  const Local<_jclass> type = findClass(java, className);
  const jmethodID valueOf =
      type ? java.GetStaticMethodID(type.get(), "valueOf", signature) : nullptr;
  return unlessThrown(java,
                      valueOf ? java.CallStaticObjectMethod(type.get(), valueOf, value) : nullptr);
}

Local<_jobject> newClosest(JNIEnv& java, const vxArray* array) {
  const bool isTooLong = vxGetNumberOfElements(array) > std::numeric_limits<jsize>::max();
  switch (isTooLong ? vxOBJECT_CLASS : vxGetClassID(array)) {
    case vxCHAR_CLASS:
      if (isText(array)) return newString(java, array);
      break;
    case vxCELL_CLASS:
      if (isColumnOfTexts(array)) return newStrings(java, array);
      break;
    case vxLOGICAL_CLASS:
      if (vxIsScalar(array))
        return newBox(java, "java/lang/Boolean", "(Z)Ljava/lang/Boolean;",
                      static_cast<jboolean>(*vxGetLogicals(array)));
      break;
    case vxDOUBLE_CLASS:
      if (vxIsComplex(array)) break;
      if (!vxIsScalar(array)) return newNumbers(java, array);
      return newBox(java, "java/lang/Double", "(D)Ljava/lang/Double;", vxGetScalar(array));
    default:
      break;
  }
  return newArrayReference(java, array);
}

// --- from Java ----------------------------------------------------------------------------------

/// What a method without arguments gives; nothing if it throws.
template <class Value>
std::optional<Value> read(JNIEnv& java, jobject object, const char* name, const char* signature,
                          Value (JNIEnv::*call)(jobject, jmethodID, ...)) {
  const Local<_jclass> type(java.GetObjectClass(object));
  const jmethodID method = java.GetMethodID(type.get(), name, signature);
  if (clearException(java) || !method) return {};
  const Value value = (java.*call)(object, method);
  if (clearException(java)) return {};
  return value;
}

/// Null if the object's method throws.
vxArray* newLogical(JNIEnv& java, jobject object) {
  const auto value = read(java, object, "booleanValue", "()Z", &JNIEnv::CallBooleanMethod);
  if (!value) return nullptr;
  vxArray* const array = vxCreateNumericMatrix(1, 1, vxLOGICAL_CLASS, vxREAL);
  *static_cast<bool*>(vxGetWritableData(array)) = *value != 0;
  return array;
}

/// Likewise.
vxArray* newNumber(JNIEnv& java, jobject object) {
  const auto value = read(java, object, "doubleValue", "()D", &JNIEnv::CallDoubleMethod);
  return value ? vxCreateDoubleScalar(*value) : nullptr;
}

/// A cell for each text; the text is empty where there is null.
vxArray* newColumnOfTexts(JNIEnv& java, jobjectArray strings) {
  const jsize length = java.GetArrayLength(strings);
  ArrayOwner column(vxCreateCellMatrix(static_cast<std::size_t>(length), 1));
  for (jsize i = 0; i < length; ++i) {
    const auto string = unlessThrown(java, java.GetObjectArrayElement(strings, i));
    vxSetCell(column.get(), static_cast<std::size_t>(i),
              string ? newTextRow(java, static_cast<jstring>(string.get())) : vxCreateString(""));
  }
  return column.release();
}

/// Null for an object of a class that none here comes close to.
vxArray* newClosest(JNIEnv& java, jobject object) {
  const auto is = [&](const char* path) { return isInstance(java, object, path); };
  if (is(kString)) return newTextRow(java, static_cast<jstring>(object));
  if (is("java/lang/Boolean")) return newLogical(java, object);
  if (is("java/lang/Number")) return newNumber(java, object);
  if (is("[D")) return newNumberRow(java, static_cast<jdoubleArray>(object));
  if (is(kStrings)) return newColumnOfTexts(java, static_cast<jobjectArray>(object));
  if (const auto held = objectBehind(java, object)) return omCreateVCOSScalar(held);
  return arrayBehind(java, object);
}

}  // namespace

void vghost::releaseGivenUpByJava() noexcept {
  releaseArraysGivenUp();
  releaseObjectsGivenUp();
}

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
  return java ? newClosest(*java, array).release() : nullptr;
}

vxArray* javaConvertJavaObjectToClosestVortilArray(jobject reference) {
  const Global object(reference);
  JNIEnv* const java = reference ? GetJNIEnv() : nullptr;
  vxArray* const closest = java ? newClosest(*java, reference) : nullptr;
  return closest ? closest : vxCreateDoubleMatrix(0, 0, vxREAL);
}
