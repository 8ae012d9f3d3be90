#include "JavaObjects.h"

#include <java/strings.h>
#include <messages/ustring.h>
#include <vx/errors.h>

#include <algorithm>
#include <limits>

namespace graphics::datatype {

namespace {

constexpr const char* kConversionError = "VORTIL:class:JavaConversionError";

/// Clears what is pending; whether there was anything.
bool clearException(JNIEnv& java) {
  if (!java.ExceptionCheck()) return false;
  java.ExceptionClear();
  return true;
}

[[noreturn]] void raiseMissingClass(const char* path, const Place& place) {
  place.raise(std::string("JNI cannot find class ").append(path), place.line);
}

[[noreturn]] void raiseNotMade(const Place& place) {
  place.raise("Java could not make or read an object: its memory may be full", place.line);
}

}  // namespace

JNIEnv& requireJava(const JavaEnvironment& environment, const char* path, const Place& place) {
  JNIEnv* const java = environment.getJNIEnv();
  if (!java) raiseMissingClass(path, place);
  return *java;
}

Local<jdoubleArray> newDoubles(JNIEnv& java, std::span<const double> numbers, const Place& place) {
  const jsize count = javaCount(numbers.size(), place);
  Local<jdoubleArray> array(java, java.NewDoubleArray(count));
  requireMade(java, array.get(), place);
  java.SetDoubleArrayRegion(array.get(), 0, count, numbers.data());
  requireNoException(java, place);
  return array;
}

std::vector<double> doublesOf(JNIEnv& java, jdoubleArray numbers, const Place& place) {
  const jsize count = java.GetArrayLength(numbers);
  std::vector<double> values(static_cast<std::size_t>(count));
  java.GetDoubleArrayRegion(numbers, 0, count, values.data());
  requireNoException(java, place);
  return values;
}

void raiseJavaError(const std::string& text) {
  vxErrMsgIdAndTxt(kConversionError, "%s", text.c_str());
}

void Place::raise(const std::string& text, int ownLine) const {
  vxErrMsgIdAndTxt(kConversionError, "%s in file %s line %d", text.c_str(), file, ownLine);
}

jsize javaCount(std::size_t count, const Place& place) {
  if (count > static_cast<std::size_t>(std::numeric_limits<jsize>::max()))
    place.raise("A Java array cannot hold " + std::to_string(count) + " elements", place.line);
  return static_cast<jsize>(count);
}

void requireMade(JNIEnv& java, const void* made, const Place& place) {
  if (made) return;
  java.ExceptionClear();
  raiseNotMade(place);
}

void requireNoException(JNIEnv& java, const Place& place) {
  if (clearException(java)) raiseNotMade(place);
}

Local<jclass> findStringClass(JNIEnv& java, const Place& place) {
  Local<jclass> found(java, java.FindClass("java/lang/String"));
  requireMade(java, found.get(), place);
  return found;
}

Local<jstring> newAsciiString(JNIEnv& java, const char* text, const Place& place) {
  Local<jstring> made(java, java.NewStringUTF(text));
  requireMade(java, made.get(), place);
  return made;
}

gui_objects::UTF16String unitsIn(const vxArray* array) {
  const std::size_t count = vxGetNumberOfElements(array);
  return count == 0 ? gui_objects::UTF16String()
                    : gui_objects::UTF16String(static_cast<const vxChar*>(vxGetData(array)), count);
}

gui_objects::UTF16String unitsOf(JNIEnv& java, jstring text, const Place& place) {
  const jsize length = java.GetStringLength(text);
  gui_objects::UTF16String units(static_cast<std::size_t>(length), 0);
  java.GetStringRegion(text, 0, length, units.data());
  requireNoException(java, place);
  return units;
}

std::string utf8Of(gui_objects::UTF16String units) {
  std::ranges::replace(units, static_cast<unsigned short>(0), static_cast<unsigned short>(0xFFFD));
  return fl::i18n::to_utf8(units.data(), units.size());
}

std::string utf8Of(JNIEnv& java, jstring text, const Place& place) {
  return utf8Of(unitsOf(java, text, place));
}

Local<jstring> newJavaString(JNIEnv& java, const gui_objects::UTF16String& units,
                             const Place& place) {
  javaCount(units.size(), place);
  Local<jstring> text(java, vljCreateStringFromUString(&java, units));
  requireMade(java, text.get(), place);
  return text;
}

Local<jstring> newJavaString(JNIEnv& java, std::string_view utf8, const Place& place) {
  return newJavaString(java, fl::i18n::to_ustring(utf8), place);
}

JavaClass::JavaClass(const JavaEnvironment& environment, const char* dotted, const char* path,
                     const Place& place)
    : java_(requireJava(environment, path, place)),
      dotted_(dotted),
      file_(place.file),
      class_(java_, java_.FindClass(path)) {
  if (clearException(java_) || !get()) raiseMissingClass(path, place);
}

void JavaClass::requireInstance(jobject object, int line) const {
  if (!java_.IsInstanceOf(object, get()))
    placeOf(line).raise(std::string("Input parameter must be an instance of ").append(dotted_),
                        line);
}

jmethodID JavaClass::findGetter(Called method, const char* signature) const {
  const jmethodID found = java_.GetMethodID(get(), method.name, signature);
  require(found, method.name, method.line);
  return found;
}

void JavaClass::requireNoException(Called method) const {
  if (clearException(java_)) raiseFailedCall(method.name, method.line);
}

void JavaClass::require(const void* result, const char* method, int line) const {
  if (!succeeded(result)) raiseFailedCall(method, line);
}

bool JavaClass::succeeded(const void* result) const {
  return !clearException(java_) && result;
}

void JavaClass::raiseFailedCall(const char* method, int line) const {
  placeOf(line).raise(std::string("JNI failed calling method ")
                          .append(method)
                          .append("() of class ")
                          .append(dotted_),
                      line);
}

double JavaObject::number(Called getter) const {
  const double number = java().CallDoubleMethod(object_, class_.findGetter(getter, "()D"));
  class_.requireNoException(getter);
  return number;
}

int JavaObject::integer(Called getter) const {
  const int number = java().CallIntMethod(object_, class_.findGetter(getter, "()I"));
  class_.requireNoException(getter);
  return number;
}

bool JavaObject::truth(Called getter) const {
  const bool truth = java().CallBooleanMethod(object_, class_.findGetter(getter, "()Z")) != 0;
  class_.requireNoException(getter);
  return truth;
}

Local<> JavaObject::object(Called getter, const char* signature) const {
  Local<> result(java(), java().CallObjectMethod(object_, class_.findGetter(getter, signature)));
  class_.require(result.get(), getter.name, getter.line);
  return result;
}

std::string JavaObject::text(Called getter) const {
  const Local<> result = object(getter, "()Ljava/lang/String;");
  return utf8Of(java(), static_cast<jstring>(result.get()), class_.placeOf(getter.line));
}

void JavaObject::readComponents(double* numbers, jsize count, int line) const {
  const Local<> result = object({"getComponents", line}, "()[D");
  const auto array = static_cast<jdoubleArray>(result.get());
  if (java().GetArrayLength(array) < count) class_.raiseFailedCall("getComponents", line);
  java().GetDoubleArrayRegion(array, 0, count, numbers);
  class_.requireNoException({"getComponents", line});
}

}  // namespace graphics::datatype
