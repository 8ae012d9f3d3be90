#include <vg/units.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace vg {
namespace {

using gui_objects::Inset2d;
using gui_objects::Point2d;

/// What a conversion does to a coordinate of each axis: (x + before) * xScale + after.
struct Factors {
  double xScale = 1;
  double yScale = 1;
  double before = 0;
  double after = 0;

  Point2d apply(double x, double y) const {
    return {(x + before) * xScale + after, (y + before) * yScale + after};
  }
};

/// Pixels to a unit of each axis; 1 for pixels and for unknown units.
struct Scale {
  double x = 1;
  double y = 1;
};

/// By the number of the unit. Normalized units and pixels have no fixed length, and their entries
/// are not read. Characters are measured in points, so they have the 72 points of an inch.
constexpr double kUnitsPerInch[] = {1, 2.54, 0, 72, 0, 72};

/// The choice of the unit takes most of the time of a conversion, so it is made by a table.
Scale pixelsPerUnit(const Pixel& pixel, const Units& units, const Position& reference,
                    double characterWidth, double characterHeight) {
  if (units.isNormalized()) return {reference.getWidth(), reference.getHeight()};
  const auto number = static_cast<std::size_t>(units.getIntValue());
  if (units.isPixels() || number >= std::size(kUnitsPerInch)) return {};
  const double scale = pixel.getPixelsPerInch() / kUnitsPerInch[number];
  if (units.isCharacters()) return {scale * characterWidth, scale * characterHeight};
  return {scale, scale};
}

/// Only a normalized target is guarded against a reference of no size.
double divideOrZero(double scale, double size) {
  return size == 0 ? 0 : scale / size;
}

Factors factorsOf(const Pixel& pixel, const Units& from, const Units& to, const Position& reference,
                  double characterWidth, double characterHeight, double pixelOrigin) {
  const Scale source = pixelsPerUnit(pixel, from, reference, characterWidth, characterHeight);
  const Scale target = pixelsPerUnit(pixel, to, reference, characterWidth, characterHeight);
  Factors factors{source.x / target.x, source.y / target.y};
  if (to.isNormalized())
    factors = {divideOrZero(source.x, target.x), divideOrZero(source.y, target.y)};
  if (from.isPixels()) factors.before = -pixelOrigin;
  if (to.isPixels()) factors.after = pixelOrigin;
  return factors;
}

/// A size in normalized units is the whole of a reference of no size.
double sizeIn(const Units& to, double size, double scale) {
  return to.isNormalized() && scale == 0 ? 1 : size * scale;
}

/// How many of the units paper has, and fonts have: the first ones, under the same numbers.
constexpr int kPaperUnits = 4;
constexpr int kFontUnits = 5;
/// In the order of their numbers in Units.
constexpr UnitsWithData::value kUnitsWithData[] = {
    UnitsWithData::kInches, UnitsWithData::kCentimeters, UnitsWithData::kNormalized,
    UnitsWithData::kPoints, UnitsWithData::kPixels,      UnitsWithData::kCharacters};

/// The unit of the same number, which has to be one of the first `count`, or points.
template <class To, class From>
To sameNumber(const From& units, int count) {
  const int number = units.getIntValue();
  return To(number >= 0 && number < count ? static_cast<typename To::value>(number) : To::kPoints);
}

}  // namespace

PaperUnits convertToPaperUnits(const Units& units) {
  return sameNumber<PaperUnits>(units, kPaperUnits);
}
Units convertToUnits(const PaperUnits& units) {
  return sameNumber<Units>(units, kPaperUnits);
}
FontUnits convertToFontUnits(const Units& units) {
  return sameNumber<FontUnits>(units, kFontUnits);
}
Units convertToUnits(const FontUnits& units) {
  return sameNumber<Units>(units, kFontUnits);
}

Units convertToUnits(const UnitsWithData& units) {
  const auto* const found = std::ranges::find(kUnitsWithData, units.getIntValue());
  return Units(found == std::end(kUnitsWithData)
                   ? Units::kNormalized
                   : static_cast<Units::value>(found - std::begin(kUnitsWithData)));
}
UnitsWithData convertToUnitsWithData(const Units& units) {
  const auto number = static_cast<std::size_t>(units.getIntValue());
  return UnitsWithData(number < std::size(kUnitsWithData) ? kUnitsWithData[number]
                                                          : UnitsWithData::kData);
}

Point2d convertPoint(const Pixel& pixel, const Units& from, const Units& to, const Point2d& point,
                     const Position& reference, double characterWidth, double characterHeight,
                     double pixelOrigin) {
  if (from == to) return point;
  return factorsOf(pixel, from, to, reference, characterWidth, characterHeight, pixelOrigin)
      .apply(point.x, point.y);
}

Point2d convertPoint(const Pixel& pixel, const Units& from, const Units& to, const Point2d& point,
                     const Position& reference, double characterWidth, double characterHeight) {
  return convertPoint(pixel, from, to, point, reference, characterWidth, characterHeight, 0);
}

Point2d convertPointWithPixelOrigin1(const Pixel& pixel, const Units& from, const Units& to,
                                     const Point2d& point, const Position& reference,
                                     double characterWidth, double characterHeight) {
  return convertPoint(pixel, from, to, point, reference, characterWidth, characterHeight, 1);
}

Position convertPosition(const Pixel& pixel, const Units& from, const Units& to,
                         const Position& position, const Position& reference, double characterWidth,
                         double characterHeight, double pixelOrigin) {
  if (from == to) return position;
  const Factors factors =
      factorsOf(pixel, from, to, reference, characterWidth, characterHeight, pixelOrigin);
  const Point2d corner = factors.apply(position.getX(), position.getY());
  return {corner.x, corner.y, sizeIn(to, position.getWidth(), factors.xScale),
          sizeIn(to, position.getHeight(), factors.yScale)};
}

Position convertPositionWithPixelOrigin1(const Pixel& pixel, const Units& from, const Units& to,
                                         const Position& position, const Position& reference,
                                         double characterWidth, double characterHeight) {
  return convertPosition(pixel, from, to, position, reference, characterWidth, characterHeight, 1);
}

double convertHeight(const Pixel& pixel, const Units& from, const Units& to, double height,
                     const Position& reference, double characterHeight) {
  if (from == to) return height;
  const Factors factors = factorsOf(pixel, from, to, reference, 1, characterHeight, 0);
  return sizeIn(to, height, factors.yScale);
}

Inset2d convertInset(const Pixel& pixel, const Units& from, const Units& to, const Inset2d& inset,
                     const Position& reference, double characterWidth, double characterHeight) {
  const Position converted = convertPosition(
      pixel, from, to, {inset.getXMin(), inset.getYMin(), inset.getXMax(), inset.getYMax()},
      reference, characterWidth, characterHeight, 0);
  return {converted.getX(), converted.getY(), converted.getWidth(), converted.getHeight()};
}

}  // namespace vg
