#pragma once

#include <jni.h>

#include <functional>
#include <string>

namespace graphics::datatype::JavaConverterUtils {

/// Leaves a Java exception pending in `env`, with the text "<message> in file <file> line <line>".
/// One that is pending already is replaced. `exceptionClass` is a path ("java/lang/...") that must
/// be found.
void throwJavaException(JNIEnv* env, const std::string& message, const std::string& exceptionClass,
                        const std::string& file, int line);

/// Runs an operation of a native entry and returns its result, or null after a failure, which
/// becomes a pending Java exception as ConverterTester says.
jobject guarded(JNIEnv* env, const std::function<jobject()>& operation);

}  // namespace graphics::datatype::JavaConverterUtils
