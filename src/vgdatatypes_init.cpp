#include "JavaConverterUtils.h"
#include "build_info.h"

#include <graphics/datatype/StringConversion.h>
#include <graphics/datatype/handles.h>
#include <graphics/datatype/registration.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <jni.h>
#include <sv/features.h>

#include <exception>

namespace {

namespace JavaConverterUtils = graphics::datatype::JavaConverterUtils;

constinit bool initializationIsDue = true;

void initializeOnce() {
  if (!initializationIsDue) return;
  // Cleared before the work: a failure is not retried, and a re-entrant call finds nothing to do.
  initializationIsDue = false;
  svRegisterFeature("VG2DoubleConversionWarning", 0, nullptr, nullptr);
  graphics::datatype::initDoubleConverters();
  graphics::datatype::initStringConverters();
  graphics::datatype::get_initialization_callback_registry()->initialize();
}

constexpr void (*kFunctions[])() = {nullptr};

constexpr VLFcnTableRecord kFunctionTable{kFunctions, VGDT_VERSION_NUMBER, VGDT_BUILD_SECONDS,
                                          nullptr,    VGDT_VERSION,        VGDT_BUILD_DATE};

}  // namespace

void VLInitialize_vgdatatypes() {
  initializeOnce();
}

void VLTerminate_vgdatatypes() {}

const VLFcnTableRecord* QueryVLFcnTable_vgdatatypes() {
  return &kFunctionTable;
}

extern "C" JNIEXPORT void JNICALL
Java_com_lindgrove_test_vg_types_Utils_initializeVgdatatypesLib(JNIEnv* env, jclass) {
  // The line numbers are part of the texts that Java tests know.
  try {
    try {
      initializeOnce();
    } catch (const std::exception& error) {
      JavaConverterUtils::throwJavaException(env, error.what(), "java/lang/RuntimeException",
                                             "src/vgdatatypes_init", 91);
    } catch (...) {
      JavaConverterUtils::throwJavaException(env, "Unknown exception in native code",
                                             "java/lang/RuntimeException", "src/vgdatatypes_init",
                                             96);
    }
  } catch (...) {
    JavaConverterUtils::throwOutOfMemory(env);
  }
}

extern "C" JNIEXPORT void JNICALL
Java_com_lindgrove_test_vg_types_Utils_cleanupVgdatatypesLib(JNIEnv*, jclass) {}
