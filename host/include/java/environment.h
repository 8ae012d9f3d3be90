#pragma once

#include <ut/export.h>

struct JNIEnv_;
using JNIEnv = JNIEnv_;  // as in jni.h, which whoever uses it includes

/// The Java environment of the calling thread; null if no Java machine runs in the process or the
/// thread is not attached to it. Nothing links to Java: while no machine runs, each call looks for
/// one.
VGHOST_API JNIEnv* GetJNIEnvR() noexcept;
/// The same, but a thread that is not attached yet is attached first, until it ends. Java programs
/// do not wait for it.
VGHOST_API JNIEnv* GetJNIEnv() noexcept;
