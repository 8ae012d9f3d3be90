#include <java/strings.h>

#include <jni.h>

#include <limits>

jstring vljCreateStringFromUString(JNIEnv* java, const fl::ustring& text) {
  if (text.size() <= std::numeric_limits<jsize>::max())
    return java->NewString(text.data(), static_cast<jsize>(text.size()));
  if (const jclass failure = java->FindClass("java/lang/OutOfMemoryError")) {
    java->ThrowNew(failure, "the text is longer than Java can hold");
    java->DeleteLocalRef(failure);
  }
  return nullptr;
}
