#pragma once

/// What the contenders share that make rectangles and points.

#include "contest.h"

#include <graphics/datatype/enumerated_types.h>

namespace peers {

using graphics::datatype::Units;

/// Left, bottom, width, height.
using Rectangle = Numbers<4>;

/// What a conversion from one unit to another is given, apart from the coordinates.
struct UnitChange {
  Units::value from;
  Units::value to;
  double pixelsPerInch;
  Rectangle reference;  ///< in pixels
  double characterWidth;
  double characterHeight;
  double pixelOrigin;
};
template <std::size_t count>
struct Conversion {
  UnitChange change;
  Numbers<count> coordinates;
};

inline constexpr UnitChange kInchesToPixels{Units::kInches, Units::kPixels, 96, {}, 5, 10, 0};
inline constexpr UnitChange kNormalizedToPoints{
    Units::kNormalized, Units::kPoints, 96, {0, 0, 800, 600}, 5, 10, 0};

inline constexpr Task<Conversion<4>, 4> kRectangleInPixels{{kInchesToPixels, {1, 1.5, 2, 0.5}},
                                                           {96, 144, 192, 48}};
inline constexpr Task<Conversion<4>, 4> kRectangleInPoints{
    {kNormalizedToPoints, {0.25, 0.5, 0.5, 0.25}}, {150, 225, 300, 112.5}};
inline constexpr Task<Conversion<2>, 2> kPointInPixels{{kInchesToPixels, {1, 1.5}}, {96, 144}};

inline constexpr Task<const char*, 4> kPositionNumbers{"[10 20 640.5 480]", {10, 20, 640.5, 480}};

}  // namespace peers
