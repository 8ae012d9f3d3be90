#include <java/environment.h>

#include <dlfcn.h>
#include <jni.h>

#include <atomic>

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

/// The machine of the process; null while none runs. One that was found is kept: it never ends
/// before the process does.
JavaVM* findMachine() noexcept {
  static constinit std::atomic<JavaVM*> kept = nullptr;
  JavaVM* machine = kept.load(std::memory_order_relaxed);
  if (machine) return machine;
  const FindMachines find = findMachines();
  jsize count = 0;
  if (!find || find(&machine, 1, &count) != JNI_OK || count == 0) return nullptr;
  kept.store(machine, std::memory_order_relaxed);
  return machine;
}

/// Java does not learn by itself that a thread ends.
struct DetachAtEnd {
  JavaVM* machine = nullptr;
  ~DetachAtEnd() {
    if (machine) machine->DetachCurrentThread();
  }
};

/// What a machine says of the calling thread.
struct Thread {
  jint status = JNI_ERR;
  JNIEnv* environment = nullptr;  ///< null where the status is not JNI_OK
};

Thread askMachine(JavaVM* machine) noexcept {
  void* environment = nullptr;
  const jint status = machine ? machine->GetEnv(&environment, JNI_VERSION_1_8) : JNI_ERR;
  return {status, status == JNI_OK ? static_cast<JNIEnv*>(environment) : nullptr};
}

}  // namespace

JNIEnv* GetJNIEnvR() noexcept {
  return askMachine(findMachine()).environment;
}

JNIEnv* GetJNIEnv() noexcept {
  JavaVM* const machine = findMachine();
  const Thread thread = askMachine(machine);
  if (thread.status != JNI_EDETACHED) return thread.environment;
  void* environment = nullptr;
  if (machine->AttachCurrentThreadAsDaemon(&environment, nullptr) != JNI_OK) return nullptr;
  thread_local DetachAtEnd attached;
  attached.machine = machine;
  return static_cast<JNIEnv*>(environment);
}
