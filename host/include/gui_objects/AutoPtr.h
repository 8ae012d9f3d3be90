#pragma once

#include <vx/array.h>

#include <memory>

namespace gui_objects {

/// Destroys a host array.
struct VxArrayDtor {
  void operator()(vxArray* array) const noexcept { vxDestroyArray(array); }
};

/// Sole owner of an object of the host.
template <class T, class Destructor>
using AutoPtr = std::unique_ptr<T, Destructor>;

}  // namespace gui_objects
