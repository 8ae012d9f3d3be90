#pragma once

#include <jni.h>

#include <string>

namespace test {

/// A Java environment with just enough behind it for exceptions to be raised and looked at.
struct FakeJavaEnvironment : JNIEnv {
  FakeJavaEnvironment() {
    table.ExceptionCheck = [](JNIEnv* env) -> jboolean { return self(env).pending; };
    table.ExceptionClear = [](JNIEnv* env) { self(env).pending = false; };
    table.FindClass = [](JNIEnv* env, const char* path) -> jclass {
      // A class may only be looked up while no exception is pending.
      if (!self(env).pending) self(env).foundClass = path;
      return nullptr;
    };
    table.ThrowNew = [](JNIEnv* env, jclass, const char* message) -> jint {
      self(env).pending = true;
      self(env).thrown = self(env).foundClass + ": " + message;
      return 0;
    };
    functions = &table;
  }

  static FakeJavaEnvironment& self(JNIEnv* env) { return static_cast<FakeJavaEnvironment&>(*env); }

  JNINativeInterface_ table{};
  bool pending = false;
  std::string foundClass;
  std::string thrown;  ///< class path and text of the exception that was thrown last
};

/// Linking FakeJavaMachine.cpp gives a program that exports its symbols this Java machine.
struct FakeJavaMachine {
  JNIEnv* environment = nullptr;  ///< null while no Java runs
  bool isAttached = true;         ///< this thread
};
inline FakeJavaMachine fakeJavaMachine;

}  // namespace test
