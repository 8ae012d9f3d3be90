#include "JavaConverterUtils.h"

namespace graphics::datatype {

void JavaConverterUtils::throwJavaException(JNIEnv* env, const std::string& message,
                                            const std::string& exceptionClass,
                                            const std::string& file, int line) {
  const std::string text = message + " in file " + file + " line " + std::to_string(line);
  if (env->ExceptionCheck()) env->ExceptionClear();
  env->ThrowNew(env->FindClass(exceptionClass.c_str()), text.c_str());
}

}  // namespace graphics::datatype
