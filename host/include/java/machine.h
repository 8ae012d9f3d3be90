#pragma once

/// The Java machine of the process. Nothing links to Java: a machine is there only after somebody
/// has started one.

#include <java/environment.h>
#include <ut/export.h>

#include <stdexcept>

namespace vghost {

/// No Java machine could be started; what() is a text for users that names what to install.
class VGHOST_API JavaUnavailable : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~JavaUnavailable() override;
};

/// The environment of this thread, after a machine was started if none runs in the process yet,
/// with the jar of the Java classes on its class path if that is there. Throws JavaUnavailable.
/// Two threads must not call it at once.
///
///   JNIEnv& java = vghost::startJava();
///   jclass text = java.FindClass("java/lang/String");
///
/// The machine leaves the signals that end a program alone, so that an interrupt stays the
/// program's. It takes options from JAVA_TOOL_OPTIONS.
VGHOST_API JNIEnv& startJava();

}  // namespace vghost
