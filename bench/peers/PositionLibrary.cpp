// The library's positions: conversions between units, and a value through its conversions.

#include "Library.h"
#include "positions.h"

#include <graphics/datatype/PositionDataType.h>
#include <gui_objects/Points.h>
#include <vg/units.h>

#include <tuple>

namespace peers {
namespace {

using graphics::datatype::Position;
using graphics::datatype::PositionDataType;
using gui_objects::Point2d;

Position positionOf(const Rectangle& rectangle) {
  return {rectangle[0], rectangle[1], rectangle[2], rectangle[3]};
}
Rectangle numbersOf(const Position& position) {
  return {position.getX(), position.getY(), position.getWidth(), position.getHeight()};
}
Numbers<2> numbersOfPoint(const Point2d& point) {
  return {point.x, point.y};
}

template <class Coordinates, std::size_t count>
void addUnits(const char* work, const Task<Conversion<count>, count>& task,
              const Coordinates& coordinates,
              Coordinates (*convert)(const vg::Pixel&, const Units&, const Units&,
                                     const Coordinates&, const Position&, double, double, double),
              Numbers<count> (*numbersOfResult)(const Coordinates&)) {
  using Given = std::tuple<vg::Pixel, Units, Units, Coordinates, Position, double, double, double>;
  const UnitChange& change = task.given.change;
  const Given given(vg::Pixel(change.pixelsPerInch), Units(change.from), Units(change.to),
                    coordinates, positionOf(change.reference), change.characterWidth,
                    change.characterHeight, change.pixelOrigin);
  competeInMaking(
      work, kOurs, Goal::kNone, Task<Given, count>{given, task.numbers},
      [convert](const Given& arguments) { return std::apply(convert, arguments); },
      numbersOfResult);
}

void addRectangle(const char* work, const Task<Conversion<4>, 4>& task) {
  addUnits(work, task, positionOf(task.given.coordinates), vg::convertPosition, numbersOf);
}
void addPoint() {
  const auto& [x, y] = kPointInPixels.given.coordinates;
  addUnits(kPointToPixels, kPointInPixels, Point2d{x, y}, vg::convertPoint, numbersOfPoint);
}

void addLibraryPositions() {
  addRectangle(kPositionToPixels, kRectangleInPixels);
  addRectangle(kPositionToPoints, kRectangleInPoints);
  addPoint();
  competeByConversion<PositionDataType>(kPositionFromText, "string", kPositionNumbers, numbersOf);
  static const vcos::ArrayOwner array = newArray(kPositionNumbers.numbers);
  competeByConversion<PositionDataType>(
      kPositionFromArray, "any", Task<const vxArray*, 4>{array.get(), kPositionNumbers.numbers},
      numbersOf);
}

[[maybe_unused]] const bool added = addContender(addLibraryPositions);

}  // namespace
}  // namespace peers
