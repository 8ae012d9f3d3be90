#include <java/environment.h>

#include <dlfcn.h>
#include <jni.h>

namespace {

using FindMachines = jint (*)(JavaVM** machines, jsize size, jsize* count);

/// The function by which a loaded Java library tells its machines; null while none is loaded.
FindMachines findMachines() noexcept {
  constexpr const char* kName = "JNI_GetCreatedJavaVMs";
  void* function = dlsym(RTLD_DEFAULT, kName);
  if (!function)
    // A library that was loaded for one caller's use only.
    if (void* const library = dlopen("libjvm.so", RTLD_LAZY | RTLD_NOLOAD)) {
      function = dlsym(library, kName);
      dlclose(library);
    }
  return reinterpret_cast<FindMachines>(function);
}

JavaVM* findMachine() noexcept {
  const FindMachines find = findMachines();
  JavaVM* machine = nullptr;
  jsize count = 0;
  return find && find(&machine, 1, &count) == JNI_OK && count != 0 ? machine : nullptr;
}

JNIEnv* environmentOf(JavaVM* machine) noexcept {
  void* environment = nullptr;
  const bool isAttached = machine && machine->GetEnv(&environment, JNI_VERSION_1_8) == JNI_OK;
  return isAttached ? static_cast<JNIEnv*>(environment) : nullptr;
}

}  // namespace

JNIEnv* GetJNIEnvR() noexcept {
  return environmentOf(findMachine());
}

JNIEnv* GetJNIEnv() noexcept {
  JavaVM* const machine = findMachine();
  if (JNIEnv* const attached = environmentOf(machine)) return attached;
  void* environment = nullptr;
  const bool isAttached = machine && machine->AttachCurrentThread(&environment, nullptr) == JNI_OK;
  return isAttached ? static_cast<JNIEnv*>(environment) : nullptr;
}
