#pragma once

/// Object arrays: host arrays whose elements are references to class-system objects.

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSNameID.h>
#include <vx/array.h>

/// A 1 by 1 array of the object's own class, or of "handle" if it has none; the empty array of
/// class "handle" for null.
[[nodiscard]] VGHOST_API vxArray* omCreateVCOSScalar(const vcos::COSInterfacePtr& object);
/// A 0 by 0 array of the class of that name.
[[nodiscard]] VGHOST_API vxArray* omCreateVCOSEmpty(vcos::COSNameID className);
/// An m by n array of null references.
[[nodiscard]] VGHOST_API vxArray* omCreateVCOSMatrix(std::size_t m, std::size_t n,
                                                     vcos::COSNameID className);
VGHOST_API vcos::COSInterfacePtr omGetArrayElement(const vxArray* array, std::size_t index);
VGHOST_API void omSetArrayElement(vxArray* array, std::size_t index,
                                  const vcos::COSInterfacePtr& object);
/// True for an object array. Null is none.
VGHOST_API bool omIsVCOS(const vxArray* array) noexcept;

/// Between the form in which users hold object arrays and the one that the class system works on.
/// Here both are the same: a new array that shares the elements, for the caller. `isCopy` says that
/// the array given stays as it is. "VORTIL:array:WrongClass" for an array of another class.
[[nodiscard]] VGHOST_API vxArray* vcosConvertArrayToInternal(const vxArray* array, bool isCopy);
[[nodiscard]] VGHOST_API vxArray* vcosConvertArrayToExternal(const vxArray* array);
