#pragma once

#include <graphics/datatype/export.h>

#include <vector>

namespace graphics::datatype {

class Tick;

/// A row of doubles; an empty vector gives a value without an array. Raises what the constructor of
/// Tick does: "VORTIL:vg:shaped_arrays:TickPredicate" unless the values increase.
///
///     const Tick ticks = convertVectorToTickData({0, 0.5, 1});
VGDT_API Tick convertVectorToTickData(const std::vector<double>& values);

/// The values of a double or single array; none without an array, and of other classes.
VGDT_API std::vector<double> convertTickDataToVector(const Tick& tick);

}  // namespace graphics::datatype
