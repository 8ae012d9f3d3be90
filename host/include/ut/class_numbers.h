#pragma once

/// Numbers of classes in the host's table of old-style objects.

#include <ut/export.h>

/// The number of a class, from 0; -1 if it is not registered.
VGHOST_API int utGetClassNum(const char* name) noexcept;
/// Registers a class that derives from that of another number, or from none (-1), and returns its
/// number. One that is registered already keeps its number and its base. `flags` is 0.
VGHOST_API int utRegisterObjectClass(const char* name, int baseClassNumber, int flags);
/// True if the class is the other one or derives from it. A number that is no class's is neither.
VGHOST_API bool utInstanceOf(int classNumber, int baseClassNumber) noexcept;
