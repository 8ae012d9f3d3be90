#pragma once

#include <jni.h>

#include <string>

namespace graphics::datatype::JavaConverterUtils {

/// Leaves a Java exception pending in `env`, with the text "<message> in file <file> line <line>".
/// One that is pending already is replaced. `exceptionClass` is a path ("java/lang/...") that must
/// be found.
void throwJavaException(JNIEnv* env, const std::string& message, const std::string& exceptionClass,
                        const std::string& file, int line);

/// Leaves a java.lang.OutOfMemoryError pending, without memory of C++.
void throwOutOfMemory(JNIEnv* env) noexcept;

/// Runs an operation of a native entry and returns its result, or null after a failure, which
/// becomes a pending Java exception as ConverterTester says.
jobject guarded(JNIEnv* env, jobject (*operation)(void* given), void* given) noexcept;
template <class Operation>
jobject guarded(JNIEnv* env, Operation operation) noexcept {
  // By its address, so that nothing has to be made for it before failures are caught.
  const auto run = [](void* given) -> jobject { return (*static_cast<Operation*>(given))(); };
  return guarded(env, run, &operation);
}

}  // namespace graphics::datatype::JavaConverterUtils
