#include "FakeJavaEnvironment.h"

namespace {

jint getEnvironment(JavaVM*, void** environment, jint) {
  *environment = test::fakeJavaMachine.environment;
  return test::fakeJavaMachine.isAttached ? JNI_OK : JNI_EDETACHED;
}

}  // namespace

extern "C" [[gnu::visibility("default")]] jint JNI_GetCreatedJavaVMs(JavaVM** machines, jsize,
                                                                     jsize* count) {
  static JNIInvokeInterface_ table{};
  static JavaVM java{&table};
  table.GetEnv = getEnvironment;
  *machines = &java;
  *count = test::fakeJavaMachine.environment ? 1 : 0;
  return JNI_OK;
}
