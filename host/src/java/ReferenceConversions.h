#pragma once

/// Arrays and objects of the host that Java holds: an array as a VLArrayRef, an object as a
/// UDDObject.

#include "Jni.h"

#include <vcos/COSInterface.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

#include <memory>

namespace vghost::java {

/// The Java conversions "any" and "handle scalar".
std::unique_ptr<vcos::JavaTypeConversion> makeArrayConversion();
std::unique_ptr<vcos::JavaTypeConversion> makeObjectConversion();

/// A VLArrayRef of an array; null if Java cannot make one.
Local<_jobject> newArrayReference(JNIEnv& java, const vxArray* array);
/// A new array for the caller; null if the object is no VLArrayRef.
vxArray* arrayBehind(JNIEnv& java, jobject object);
/// Null if the object is no UDDObject.
vcos::COSInterfacePtr objectBehind(JNIEnv& java, jobject object);

void releaseArraysGivenUp() noexcept;
void releaseObjectsGivenUp() noexcept;

}  // namespace vghost::java
