#pragma once

#include <java/environment.h>
#include <messages/ustring.h>
#include <ut/export.h>

class _jstring;             // NOLINT(bugprone-reserved-identifier): the name is Java's
using jstring = _jstring*;  // as in jni.h

/// A local reference; null with an exception pending if memory fails.
[[nodiscard]] VGHOST_API jstring vljCreateStringFromUString(JNIEnv* java, const fl::ustring& text);
