#pragma once

#include <jni.h>

/// Linking FakeJavaMachine.cpp gives the program, which has to export its symbols, a Java machine.
namespace test {

struct FakeJavaMachine {
  JNIEnv* environment = nullptr;  ///< null while no Java runs
  bool isAttached = true;         ///< this thread
};
inline FakeJavaMachine fakeJavaMachine;

}  // namespace test
