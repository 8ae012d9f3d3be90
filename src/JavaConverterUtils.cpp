#include "JavaConverterUtils.h"

#include "JavaObjects.h"

#include <graphics/datatype/ConverterTester.h>
#include <messages/exceptions.h>
#include <messages/ustring.h>
#include <vx/errors.h>
#include <vx/scopes.h>

#include <memory>

namespace graphics::datatype {

namespace {

constexpr const char* kFile = "src/JavaConverterUtils";
constexpr const char* kRuntimeException = "java/lang/RuntimeException";

/// A text in the form of UTF-8 that ThrowNew takes: each unit of UTF-16 by itself, and NUL in two
/// bytes. (The Java Virtual Machine Specification calls it modified UTF-8.)
std::string modifiedUtf8(const std::string& utf8) {
  std::string bytes;
  const auto add = [&bytes](unsigned int byte) { bytes.push_back(static_cast<char>(byte)); };
  for (const unsigned int unit : fl::i18n::to_ustring(utf8)) {
    if (unit != 0 && unit < 0x80) {
      add(unit);
    } else if (unit < 0x800) {
      add(0xC0 | unit >> 6);
      add(0x80 | (unit & 0x3F));
    } else {
      add(0xE0 | unit >> 12);
      add(0x80 | (unit >> 6 & 0x3F));
      add(0x80 | (unit & 0x3F));
    }
  }
  return bytes;
}

/// One that is pending already is replaced.
void throwNew(JNIEnv& java, const char* exceptionClass, const std::string& text) {
  if (java.ExceptionCheck()) java.ExceptionClear();
  const Local<jclass> type(java, java.FindClass(exceptionClass));
  java.ThrowNew(type.get(), modifiedUtf8(text).c_str());
}

/// The scopes in which an operation of a tester runs, entered and left in this order.
class TestScope {
  struct ErrorMode {
    ErrorMode() = default;
    ErrorMode(const ErrorMode&) = delete;
    ErrorMode& operator=(const ErrorMode&) = delete;
    ~ErrorMode() { vxSetErrorMode(saved); }
    vxErrorMode saved = vxSetErrorMode(vxERROR_MODE_RAISE);
  };
  struct Restore {
    void operator()(vxAllocListContext* context) const {
      vxRestorePreviousAllocListContext(context);
    }
  };
  struct Exit {
    void operator()(vxArrayListContext* context) const {
      vxExitArrayListContext(context, nullptr, 0, true);
    }
  };

  ErrorMode mode_;
  std::unique_ptr<vxAllocListContext, Restore> memory_{vxEnterNewAllocListContext()};
  std::unique_ptr<vxArrayListContext, Exit> arrays_{vxEnterNewArrayListContext()};
};

/// Lets Java see a failure, by what `throwFailure` throws there.
template <class ThrowFailure>
void tell(JNIEnv& java, ThrowFailure&& throwFailure) noexcept {
  try {
    throwFailure();
  } catch (...) {
    JavaConverterUtils::throwOutOfMemory(&java);  // there was none for the text
  }
}

/// Runs an operation; `throwUnexpected` says what becomes of a failure that is no host error.
template <class Operation, class ThrowUnexpected>
jobject guardedOr(JNIEnv& java, Operation&& operation, ThrowUnexpected&& throwUnexpected) noexcept {
  try {
    const TestScope scope;
    try {
      return operation();
    } catch (const Lindgrove::System::utErrorException_DEPRECATED& error) {
      error.rethrow();
    }
  } catch (const fl::except::IUserException& error) {
    tell(java, [&] {
      throwNew(java, "java/lang/IllegalArgumentException",
               std::string(error.GetID()) + ' ' + error.GetMessageTxt());
    });
  } catch (...) {
    tell(java, throwUnexpected);
  }
  return nullptr;
}

}  // namespace

void JavaConverterUtils::throwJavaException(JNIEnv* env, const std::string& message,
                                            const std::string& exceptionClass,
                                            const std::string& file, int line) {
  throwNew(*env, exceptionClass.c_str(),
           message + " in file " + file + " line " + std::to_string(line));
}

void JavaConverterUtils::throwOutOfMemory(JNIEnv* env) noexcept {
  if (env->ExceptionCheck()) env->ExceptionClear();
  const Local<jclass> type(*env, env->FindClass("java/lang/OutOfMemoryError"));
  if (type.get()) env->ThrowNew(type.get(), "native memory ran out");
}

jobject JavaConverterUtils::guarded(JNIEnv* env, jobject (*operation)(void* given),
                                    void* given) noexcept {
  return guardedOr(
      *env, [&] { return operation(given); },
      [env] {
        throwNew(*env, kRuntimeException,
                 std::string("Unexpected exception in file ") + kFile + " line " +
                     std::to_string(__LINE__));
      });
}

ConverterTester::~ConverterTester() = default;

jobject ConverterTester::testGetter(JNIEnv* java, jobject caller) {
  return JavaConverterUtils::guarded(java, [&] { return getter(java, caller); });
}

void ConverterTester::testSetter(JNIEnv* java, jobject caller, jobject value) {
  JavaConverterUtils::guarded(java, [&]() -> jobject {
    setter(java, caller, value);
    return nullptr;
  });
}

jobject ConverterTester::convertToJavaFromString(JNIEnv* java, jobject caller, jstring text) {
  if (!text) return nullptr;
  const auto operation = [&] {
    return doConvertToJavaFromString(java, caller, utf8Of(*java, text, Place(kFile)));
  };
  // Kept: the text says "in file" twice, and the line is one that callers know.
  return guardedOr(*java, operation, [java] {
    JavaConverterUtils::throwJavaException(java, "Unexpected exception in file ", kRuntimeException,
                                           kFile, 166);
  });
}

jobject ConverterTester::doConvertToJavaFromString(JNIEnv* java, jobject,
                                                   const std::string&) const {
  JavaConverterUtils::throwJavaException(
      java, "method doConvertToJavaFromString() is not implemented",
      "java/lang/UnsupportedOperationException", kFile, __LINE__);
  return nullptr;
}

}  // namespace graphics::datatype
