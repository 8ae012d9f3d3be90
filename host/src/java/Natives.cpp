#include "Natives.h"

#include <java/strings.h>
#include <messages/exceptions.h>
#include <vcos/exceptions.h>

#include <exception>
#include <new>

namespace vghost::java {
namespace {

/// Not by ThrowNew, which takes no plain UTF-8.
void throwNew(JNIEnv& java, const char* path, const fl::ustring& text) noexcept {
  if (java.ExceptionCheck()) return;
  const Local<_jclass> type(java.FindClass(path));
  if (!type) return;
  const jmethodID constructor = java.GetMethodID(type.get(), "<init>", "(Ljava/lang/String;)V");
  if (!constructor) return;
  const Local<_jstring> message(vljCreateStringFromUString(&java, text));
  if (!message) return;
  const Local<_jobject> failure(java.NewObject(type.get(), constructor, message.get()));
  if (!java.ExceptionCheck()) java.Throw(static_cast<jthrowable>(failure.get()));
}

void throwOutOfMemory(JNIEnv& java) noexcept {
  throwNew(java, "java/lang/OutOfMemoryError", fl::ustring());
}

}  // namespace

void throwToJava(JNIEnv& java) noexcept {
  try {
    try {
      throw;
    } catch (const Lindgrove::System::OutOfMemoryException_DEPRECATED&) {
      throw std::bad_alloc();
    } catch (const vcos::COSOutOfMemoryException&) {
      throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& failure) {
      throwNew(java, "java/lang/IllegalStateException", fl::i18n::to_ustring(failure.what()));
    }
  } catch (...) {
    throwOutOfMemory(java);
  }
}

jstring newJavaText(JNIEnv* java, const std::string& utf8) {
  return vljCreateStringFromUString(java, fl::i18n::to_ustring(utf8));
}

}  // namespace vghost::java
