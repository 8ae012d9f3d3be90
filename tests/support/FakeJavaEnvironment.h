#pragma once

#include <jni.h>

#include <string>

namespace test {

/// A Java environment with just enough behind it for exceptions to be raised and looked at.
class FakeJavaEnvironment {
 public:
  FakeJavaEnvironment() {
    functions_.ExceptionCheck = [](JNIEnv* env) -> jboolean { return self(env).pending_; };
    functions_.ExceptionClear = [](JNIEnv* env) { self(env).pending_ = false; };
    functions_.FindClass = [](JNIEnv* env, const char* path) -> jclass {
      // A class may only be looked up while no exception is pending.
      if (!self(env).pending_) self(env).foundClass_ = path;
      return nullptr;
    };
    functions_.ThrowNew = [](JNIEnv* env, jclass, const char* text) -> jint {
      self(env).pending_ = true;
      self(env).thrownClass_ = self(env).foundClass_;
      self(env).text_ = text;
      return 0;
    };
    environment_.jni.functions = &functions_;
    environment_.owner = this;
  }

  JNIEnv* get() noexcept { return &environment_.jni; }
  void setPending() noexcept { pending_ = true; }

  bool pending() const noexcept { return pending_; }
  /// Class path and text of the exception that was thrown last.
  const std::string& thrownClass() const noexcept { return thrownClass_; }
  const std::string& text() const noexcept { return text_; }

 private:
  struct Environment {
    JNIEnv jni;
    FakeJavaEnvironment* owner;
  };

  static FakeJavaEnvironment& self(JNIEnv* env) {
    return *reinterpret_cast<Environment*>(env)->owner;
  }

  JNINativeInterface_ functions_{};
  Environment environment_{};
  bool pending_ = false;
  std::string foundClass_;
  std::string thrownClass_;
  std::string text_;
};

}  // namespace test
