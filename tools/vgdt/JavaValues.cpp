#include "JavaValues.h"

#include "Values.h"

#include <fmt/format.h>
#include <java/machine.h>
#include <jni.h>
#include <messages/ustring.h>

#include <new>
#include <stdexcept>

namespace vgdt {
namespace {

/// Local references made while it lives end with it.
class LocalFrame {
 public:
  explicit LocalFrame(JNIEnv& java) : java_(java) {
    constexpr jint kReferences = 32;
    if (java.PushLocalFrame(kReferences) == 0) return;
    java.ExceptionClear();
    throw std::bad_alloc();
  }
  ~LocalFrame() {
    java_.ExceptionClear();
    java_.PopLocalFrame(nullptr);
  }
  LocalFrame(const LocalFrame&) = delete;
  LocalFrame& operator=(const LocalFrame&) = delete;

 private:
  JNIEnv& java_;
};

void requireNoException(JNIEnv& java, const char* call) {
  if (!java.ExceptionCheck()) return;
  java.ExceptionClear();
  throw std::runtime_error(fmt::format("{} throws a Java exception", call));
}

/// None for null.
std::optional<std::string> readText(JNIEnv& java, jobject object) {
  if (!object) return std::nullopt;
  const auto text = static_cast<jstring>(object);
  fl::ustring units(static_cast<std::size_t>(java.GetStringLength(text)), 0);
  java.GetStringRegion(text, 0, static_cast<jsize>(units.size()), units.data());
  return fl::i18n::to_utf8(units.data(), units.size());
}

/// The text that a method without arguments gives.
std::optional<std::string> callForText(JNIEnv& java, jobject object, const char* method) {
  const jmethodID id =
      java.GetMethodID(java.GetObjectClass(object), method, "()Ljava/lang/String;");
  const jobject text = id ? java.CallObjectMethod(object, id) : nullptr;
  requireNoException(java, method);
  return readText(java, text);
}

/// By the toString() of java.util.Arrays that takes arrays of this type.
std::optional<std::string> textOfArray(JNIEnv& java, jobject array, const char* type) {
  const jclass arrays = java.FindClass("java/util/Arrays");
  const std::string signature = fmt::format("({})Ljava/lang/String;", type);
  const jmethodID id =
      arrays ? java.GetStaticMethodID(arrays, "toString", signature.c_str()) : nullptr;
  const jobject text = id ? java.CallStaticObjectMethod(arrays, id, array) : nullptr;
  requireNoException(java, "toString");
  return readText(java, text);
}

std::optional<std::string> textOfObject(JNIEnv& java, jobject object) {
  for (const char* type : {"[D", "[Ljava/lang/Object;"}) {
    const jclass arrayClass = java.FindClass(type);
    requireNoException(java, "FindClass");
    if (java.IsInstanceOf(object, arrayClass)) return textOfArray(java, object, type);
  }
  return callForText(java, object, "toString");
}

const vcos::JavaTypeConversion& requireConversion(const Type& type) {
  const auto* conversion = vcos::JavaTypeConversion::getConversion(type.access.name());
  if (!conversion) throw RequestError(fmt::format("the type \"{}\" has no Java form", type.name));
  return *conversion;
}

JNIEnv& requireJava() {
  try {
    return vghost::startJava();
  } catch (const vghost::JavaUnavailable& error) {
    throw RequestError(error.what());
  }
}

}  // namespace

JavaAccess::JavaAccess(const Type& type)
    : type_(type),
      conversion_(&requireConversion(type)),
      java_(requireJava()) {}

JavaForm JavaAccess::formOf(vcos::COSValue word) const {
  const LocalFrame frame(java_);
  JavaForm form = {};
  jobject object = nullptr;
  form.failure = failureOf([&] { object = conversion_->to(word).asPointer<_jobject>(); });
  if (form.failure) return form;
  if (object) {
    form.className = callForText(java_, java_.GetObjectClass(object), "getTypeName");
    form.textFailure = failureOf([&] { form.text = textOfObject(java_, object); });
  }
  form.arrayFailure = failureOf([&] {
    const vcos::COSDataType& dataType = type_.access.dataType();
    const vcos::OwnedValue back(dataType, conversion_->from(vcos::COSValue::fromPointer(object)));
    form.array = arrayOf(type_, back.get());
    form.isEqual = dataType.isEqual(word, back.get());
  });
  if (form.array) vxSetArrayScope(form.array.get(), 0);
  return form;
}

std::optional<std::string> javaClassOf(const Type& type) {
  auto* conversion = vcos::JavaTypeConversion::getConversion(type.access.name());
  return conversion ? std::optional<std::string>(conversion->getJavaDeclarationName())
                    : std::nullopt;
}

}  // namespace vgdt
