#pragma once

/// Coordinates in other units. Each conversion goes by way of pixels and has one scale for each
/// axis:
///
///     using graphics::datatype::Position;
///     using graphics::datatype::Units;
///     const Units inches(Units::kInches);
///     const Units pixels(Units::kPixels);
///     const Position inInches(1, 1, 2, 2);
///     vg::convertPosition(vg::Pixel(96), inches, pixels, inInches, {}, 0, 0, 0);  // 96 96 192 192
///
/// An inch is 2.54 centimeters, by its international definition, and 72 points, those of desktop
/// publishing. Normalized units are fractions of the size of `reference`, which is in pixels; its
/// corner plays no part. `characterWidth` and `characterHeight` are in points. `pixelOrigin` is the
/// number of the first pixel, for the side that is in pixels: 1 in the host, 0 in most other
/// places. It moves points and corners, never sizes.
///
/// Between equal units, whatever is given comes back as it is. To normalized units, where the
/// reference has no size, or a character of the source has none, a coordinate is 0, but a size
/// is 1. A character size of 0 is not checked for otherwise: it gives infinities or NaN. A value
/// that is none of the six units has a scale of 1.
///
/// Nothing is allocated and nothing kept, so all functions can be called on any thread. They report
/// no error of their own.

#include <graphics/datatype/PositionDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/export.h>
#include <gui_objects/Inset2d.h>
#include <gui_objects/Points.h>
#include <vg/Pixel.h>

namespace vg {

using graphics::datatype::FontUnits;
using graphics::datatype::PaperUnits;
using graphics::datatype::Position;
using graphics::datatype::Units;
using graphics::datatype::UnitsWithData;

// The unit of the same name. A unit that the target does not have becomes points, but "data"
// becomes normalized, and a value that is no unit at all becomes points, from UnitsWithData
// normalized, and to UnitsWithData data.

VGDT_API PaperUnits convertToPaperUnits(const Units& units);
VGDT_API Units convertToUnits(const PaperUnits& units);
VGDT_API FontUnits convertToFontUnits(const Units& units);
VGDT_API Units convertToUnits(const FontUnits& units);
VGDT_API Units convertToUnits(const UnitsWithData& units);
VGDT_API UnitsWithData convertToUnitsWithData(const Units& units);

VGDT_API gui_objects::Point2d convertPoint(const Pixel& pixel, const Units& from, const Units& to,
                                           const gui_objects::Point2d& point,
                                           const Position& reference, double characterWidth,
                                           double characterHeight, double pixelOrigin);
/// With 0 as the pixel origin.
VGDT_API gui_objects::Point2d convertPoint(const Pixel& pixel, const Units& from, const Units& to,
                                           const gui_objects::Point2d& point,
                                           const Position& reference, double characterWidth,
                                           double characterHeight);
/// With 1 as the pixel origin.
VGDT_API gui_objects::Point2d convertPointWithPixelOrigin1(
    const Pixel& pixel, const Units& from, const Units& to, const gui_objects::Point2d& point,
    const Position& reference, double characterWidth, double characterHeight);

/// Errors: gui_objects::RectangleCrossedPointsException if a size becomes negative.
VGDT_API Position convertPosition(const Pixel& pixel, const Units& from, const Units& to,
                                  const Position& position, const Position& reference,
                                  double characterWidth, double characterHeight,
                                  double pixelOrigin);
/// With 1 as the pixel origin.
VGDT_API Position convertPositionWithPixelOrigin1(const Pixel& pixel, const Units& from,
                                                  const Units& to, const Position& position,
                                                  const Position& reference, double characterWidth,
                                                  double characterHeight);

/// A vertical length.
VGDT_API double convertHeight(const Pixel& pixel, const Units& from, const Units& to, double height,
                              const Position& reference, double characterHeight);

/// Four margins. Kept: they are converted as if they were a rectangle, the left and the lower one
/// as its corner, the right and the upper one as its size. To normalized units, against a reference
/// of no size, the former are 0 and the latter 1.
///
/// Errors: gui_objects::RectangleCrossedPointsException if the right or the upper margin is or
/// becomes negative, gui_objects::InvalidInsetException if another becomes so.
VGDT_API gui_objects::Inset2d convertInset(const Pixel& pixel, const Units& from, const Units& to,
                                           const gui_objects::Inset2d& inset,
                                           const Position& reference, double characterWidth,
                                           double characterHeight);

}  // namespace vg
