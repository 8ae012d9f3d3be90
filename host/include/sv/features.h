#pragma once

/// Named features of the host, and its graphics status word.

#include <ut/export.h>
#include <vx/array.h>

/// A registered feature. State 1 means on.
struct svFeatureEntry {
  const char* name;
  int state;
  void (*onChange)(int state);
  void (*command)(int resultCount, vxArray** results, int argumentCount, vxArray** arguments);
};

/// Registers a feature in state `state`; either function may be null. A name that is registered
/// already gets the new state and functions.
VGHOST_API void svRegisterFeature(const char* name, int state, void (*onChange)(int),
                                  void (*command)(int, vxArray**, int, vxArray**));
/// The entry of a feature, or null. It lives as long as the process.
VGHOST_API const svFeatureEntry* svFindFeatureEntry(const char* name);
/// True if the feature exists and is on.
VGHOST_API bool svIsFeatureEnabled(const char* name);
/// Changes the state of a feature and tells its `onChange`. False if there is no such feature.
VGHOST_API bool svSetFeatureState(const char* name, int state);

/// The graphics status word: read it, set bits in it, clear bits in it.
VGHOST_API int svGetVGStatus() noexcept;
VGHOST_API void svSetVGStatus(int mask) noexcept;
VGHOST_API void svClearVGStatus(int mask) noexcept;
