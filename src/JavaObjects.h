#pragma once

/// How a value becomes a Java object and a Java object a value: the one road of all conversions
/// that have a Java class of their own. A type says its class, what becomes of null, and the two
/// directions:
///
///     struct Point2dInJava {
///       using Value = gui_objects::Point2d;  // what a word points to; a null word becomes null
///       static constexpr JavaName kClass{"com.lindgrove.vg.types.VGPoint"};
///       static constexpr const char* kFile = "objects/Points";
///       static constexpr const char* kNullText = "Input parameter for Point2d must not be NULL ";
///       static jobject toJava(const JavaClass& javaClass, const Value& point) {
///         return javaClass.create("(DD)V", point.x, point.y);
///       }
///       static COSValue fromJava(const JavaObject& object) {
///         const auto [x, y] = object.components<2>();
///         return COSValue::fromPointer(new Value{x, y});
///       }
///     };
///     VGDT_JAVA_CONVERSION(Point2dJC, Point2dInJava)
///
/// A type that takes null has `static COSValue ofNull()` in place of kNullText. Local references
/// that are no results are deleted, and no exception stays pending.

#include <graphics/datatype/AbstractJavaConverter.h>
#include <gui_objects/UTF16String.h>
#include <vcos/COSTypeConversion.h>
#include <vcos/COSValue.h>
#include <vx/array.h>

#include <jni.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace graphics::datatype {

/// The name of a Java class as people write it, and as JNI wants it.
template <std::size_t size>
struct JavaName {
  consteval explicit JavaName(const char (&name)[size]) {
    const std::string_view text(name, size - 1);
    const bool isArray = text.ends_with("[]");
    char* end = path;
    if (text == "double[]") {
      *end++ = '[';
      *end++ = 'D';
    } else {
      for (const char c : isArray ? std::string_view("[L") : std::string_view())
        *end++ = c;
      for (const char c : text.substr(0, text.size() - (isArray ? 2 : 0)))
        *end++ = c == '.' ? '/' : c;
      if (isArray) *end++ = ';';
    }
    for (std::size_t i = 0; i < size; ++i)
      dotted[i] = name[i];
  }

  char dotted[size] = {};
  char path[size + 2] = {};
};

/// References to host arrays.
inline constexpr JavaName kArrayReference{"com.lindgrove.jvi.types.VLArrayRef"};

/// The registered conversions of a type, by its dotted name. Raise if there is none.
const vcos::JavaTypeConversion& javaConversionOf(const char* name);
const vcos::COSTypeConversion& arrayConversionOf(const char* name);
const vcos::COSTypeConversion& textConversionOf(const char* name);
/// The host's own conversion between arrays and references to them.
const vcos::JavaTypeConversion& hostArrayConversion();

/// Where in the sources an error arises; its text says so.
struct Place {
  explicit constexpr Place(const char* ownFile, int ownLine = __builtin_LINE())
      : file(ownFile),
        line(ownLine) {}

  /// Raises "VORTIL:class:JavaConversionError" with "<text> in file <file> line <line>".
  [[noreturn]] void raise(const std::string& text, int ownLine = __builtin_LINE()) const;

  const char* file;
  int line;
};

/// Raises "VORTIL:class:JavaConversionError" with a text alone.
[[noreturn]] void raiseJavaError(const std::string& text);

/// A Java method or a signature, and the line of the source that uses it, for errors.
struct Called {
  constexpr Called(const char* ownName, int ownLine = __builtin_LINE())  // NOLINT: implicit
      : name(ownName),
        line(ownLine) {}

  const char* name;
  int line;
};

/// A local reference, deleted when its owner ends.
template <class Object = jobject>
class Local {
 public:
  Local(JNIEnv& java, Object object) noexcept : java_(&java), object_(object) {}
  Local(Local&& other) noexcept : java_(other.java_), object_(other.release()) {}
  Local& operator=(Local&&) = delete;
  ~Local() {
    if (object_) java_->DeleteLocalRef(object_);
  }

  Object get() const noexcept { return object_; }
  [[nodiscard]] Object release() noexcept { return std::exchange(object_, nullptr); }

 private:
  JNIEnv* java_;
  Object object_;
};

/// Java's count of elements. Raises for more than Java can count.
jsize javaCount(std::size_t count, const Place& place);

/// The environment; raises "JNI cannot find class ..." with the path where no Java machine runs.
JNIEnv& requireJava(const JavaEnvironment& environment, const char* path, const Place& place);

Local<jdoubleArray> newDoubles(JNIEnv& java, std::span<const double> numbers, const Place& place);
std::vector<double> doublesOf(JNIEnv& java, jdoubleArray numbers, const Place& place);

Local<jstring> newAsciiString(JNIEnv& java, const char* text, const Place& place);

/// The units of a char array.
gui_objects::UTF16String unitsIn(const vxArray* array);

/// The units of a text as they stand; raises if Java gives none of them.
gui_objects::UTF16String unitsOf(JNIEnv& java, jstring text, const Place& place);
/// The same in UTF-8, where half of a surrogate pair and NUL, which ends texts in C, are U+FFFD.
std::string utf8Of(gui_objects::UTF16String units);
std::string utf8Of(JNIEnv& java, jstring text, const Place& place);

/// Raises, after clearing what is pending, if a call has made nothing. Only for calls that give
/// null whenever they leave an exception.
void requireMade(JNIEnv& java, const void* made, const Place& place);
/// Raises, after clearing what is pending, if a call has failed.
void requireNoException(JNIEnv& java, const Place& place);

Local<jstring> newJavaString(JNIEnv& java, const gui_objects::UTF16String& units,
                             const Place& place);
Local<jstring> newJavaString(JNIEnv& java, std::string_view utf8, const Place& place);

/// Each text of a String[]; one that is null is empty. `use` gets the units.
template <class Use>
void forEachText(JNIEnv& java, jobjectArray texts, Use use, const Place& place);

Local<jclass> findStringClass(JNIEnv& java, const Place& place);

/// A String[] of `count` texts; `newText(i)` makes each and is called in order.
template <class NewText>
Local<jobjectArray> newStringArray(JNIEnv& java, jclass stringClass, std::size_t count,
                                   NewText newText, const Place& place);

/// A class that Java has found. It names the file that errors name.
class JavaClass {
 public:
  /// Raises "JNI cannot find class ...", also where no Java machine runs.
  template <std::size_t size>
  JavaClass(const JavaEnvironment& environment, const JavaName<size>& name, const Place& place)
      : JavaClass(environment, name.dotted, name.path, place) {}

  JNIEnv& java() const noexcept { return java_; }
  jclass get() const noexcept { return class_.get(); }
  Place placeOf(int line) const noexcept { return Place(file_, line); }

  /// Raises "Input parameter must be an instance of ..." unless it is one.
  void requireInstance(jobject object, int line = __builtin_LINE()) const;

  /// A local reference to a new object, by the constructor of that signature.
  template <class... Arguments>
  jobject create(Called signature, Arguments... arguments) const {
    const jmethodID constructor = java_.GetMethodID(get(), "<init>", signature.name);
    const jobject made = constructor ? java_.NewObject(get(), constructor, arguments...) : nullptr;
    require(made, "<init>", signature.line);
    return made;
  }

  /// A local reference to what the static method newInstance() returns.
  template <class... Arguments>
  jobject newInstance(Called signature, Arguments... arguments) const {
    const jobject made = tryNewInstance(signature.name, arguments...);
    require(made, "newInstance", signature.line);
    return made;
  }
  /// The same; null, and perhaps an exception that is pending, if it fails.
  template <class... Arguments>
  jobject tryNewInstance(const char* signature, Arguments... arguments) const {
    const jmethodID factory = java_.GetStaticMethodID(get(), "newInstance", signature);
    return factory ? java_.CallStaticObjectMethod(get(), factory, arguments...) : nullptr;
  }

  /// Whether a call has given something and left no exception; one that it left is cleared.
  bool succeeded(const void* result) const;

  jmethodID findGetter(Called method, const char* signature) const;
  /// Raises if a call has left an exception, which is cleared.
  void requireNoException(Called method) const;
  /// Raises if a call has left an exception or given null.
  void require(const void* result, const char* method, int line) const;
  [[noreturn]] void raiseFailedCall(const char* method, int line) const;

 private:
  JavaClass(const JavaEnvironment& environment, const char* dotted, const char* path,
            const Place& place);

  JNIEnv& java_;
  const char* dotted_;
  const char* file_;
  Local<jclass> class_;
};

/// An instance of a class, and what its getters say. A getter that throws, or gives null, raises.
class JavaObject {
 public:
  JavaObject(const JavaClass& javaClass, jobject object) : class_(javaClass), object_(object) {}

  const JavaClass& javaClass() const noexcept { return class_; }
  JNIEnv& java() const noexcept { return class_.java(); }
  jobject get() const noexcept { return object_; }

  double number(Called getter) const;
  int integer(Called getter) const;
  bool truth(Called getter) const;
  Local<> object(Called getter, const char* signature) const;
  std::string text(Called getter) const;  ///< in UTF-8, as utf8Of()

  /// The first numbers of what getComponents() gives; raises for fewer.
  template <std::size_t count>
  std::array<double, count> components(int line = __builtin_LINE()) const {
    std::array<double, count> numbers{};
    readComponents(numbers.data(), count, line);
    return numbers;
  }

 private:
  void readComponents(double* numbers, jsize count, int line) const;

  const JavaClass& class_;
  jobject object_;
};

/// Null for a null word.
template <class InJava>
vcos::COSValue objectToJava(const JavaEnvironment& environment, vcos::COSValue value,
                            const Place& place) {
  if (value.isNull()) return value;
  const JavaClass javaClass(environment, InJava::kClass, place);
  return vcos::COSValue::fromPointer(
      InJava::toJava(javaClass, *value.asPointer<const typename InJava::Value>()));
}

template <class InJava>
vcos::COSValue objectFromJava(const JavaEnvironment& environment, vcos::COSValue object,
                              const Place& place) {
  if constexpr (requires { InJava::ofNull(); }) {
    if (object.isNull()) return InJava::ofNull();
  } else {
    if (object.isNull()) place.raise(InJava::kNullText, place.line);
  }
  const JavaClass javaClass(environment, InJava::kClass, place);
  javaClass.requireInstance(object.asPointer<_jobject>(), place.line);
  return InJava::fromJava(JavaObject(javaClass, object.asPointer<_jobject>()));
}

template <class Use>
void forEachText(JNIEnv& java, jobjectArray texts, Use use, const Place& place) {
  const jsize count = java.GetArrayLength(texts);
  for (jsize i = 0; i < count; ++i) {
    const Local<> text(java, java.GetObjectArrayElement(texts, i));
    if (!text.get()) requireNoException(java, place);
    use(text.get() ? unitsOf(java, static_cast<jstring>(text.get()), place)
                   : gui_objects::UTF16String());
  }
}

template <class NewText>
Local<jobjectArray> newStringArray(JNIEnv& java, jclass stringClass, std::size_t count,
                                   NewText newText, const Place& place) {
  Local<jobjectArray> texts(java,
                            java.NewObjectArray(javaCount(count, place), stringClass, nullptr));
  requireMade(java, texts.get(), place);
  for (std::size_t i = 0; i < count; ++i) {
    const Local<jstring> element = newText(i);
    java.SetObjectArrayElement(texts.get(), static_cast<jsize>(i), element.get());
    requireNoException(java, place);
  }
  return texts;
}

}  // namespace graphics::datatype

/// Defines the members of a conversion by what a type says of itself in Java.
#define VGDT_JAVA_CONVERSION(Converter, InJava)                         \
  vcos::COSValue Converter::to(vcos::COSValue value) const {            \
    return objectToJava<InJava>(*this, value, Place(InJava::kFile));    \
  }                                                                     \
  vcos::COSValue Converter::from(vcos::COSValue object) const {         \
    return objectFromJava<InJava>(*this, object, Place(InJava::kFile)); \
  }                                                                     \
  const char* Converter::getJavaDeclarationName() {                     \
    return InJava::kClass.dotted;                                       \
  }
