// Lower bounds of the positions. That of a conversion between units is the bare arithmetic, in a
// function that is not inlined, with a switch over the number of either unit. It makes no
// difference for a reference of no size and does not look for a negative size.

#include "bounds.h"
#include "positions.h"

#include <graphics/datatype/PositionDataType.h>

namespace peers {
namespace {

struct Scale {
  double x;
  double y;
};

Scale pixelsPerUnit(const UnitChange& change, Units::value unit) {
  const double perInch = change.pixelsPerInch;
  const double perPoint = perInch / 72;
  switch (unit) {
    case Units::kInches:
      return {perInch, perInch};
    case Units::kCentimeters:
      return {perInch / 2.54, perInch / 2.54};
    case Units::kNormalized:
      return {change.reference[2], change.reference[3]};
    case Units::kPoints:
      return {perPoint, perPoint};
    case Units::kCharacters:
      return {perPoint * change.characterWidth, perPoint * change.characterHeight};
    default:
      return {1, 1};
  }
}

struct Factors {
  Scale scale;
  double before;
  double after;
};

Factors factorsOf(const UnitChange& change) {
  const Scale source = pixelsPerUnit(change, change.from);
  const Scale target = pixelsPerUnit(change, change.to);
  return {{source.x / target.x, source.y / target.y},
          change.from == Units::kPixels ? -change.pixelOrigin : 0,
          change.to == Units::kPixels ? change.pixelOrigin : 0};
}

template <std::size_t count>
[[gnu::noinline]] Numbers<count> convert(const Conversion<count>& conversion) {
  const auto& [change, numbers] = conversion;
  if (change.from == change.to) return numbers;
  const auto [scale, before, after] = factorsOf(change);
  Numbers<count> converted{(numbers[0] + before) * scale.x + after,
                           (numbers[1] + before) * scale.y + after};
  if constexpr (count == 4) {
    converted[2] = numbers[2] * scale.x;
    converted[3] = numbers[3] * scale.y;
  }
  return converted;
}

void addPositionBounds() {
  using graphics::datatype::Position;
  constexpr const char* kName = "arithmetic";
  competeInMaking(kPositionToPixels, kName, Goal::kTwice, kRectangleInPixels, convert<4>);
  competeInMaking(kPositionToPoints, kName, Goal::kTwice, kRectangleInPoints, convert<4>);
  competeInMaking(kPointToPixels, kName, Goal::kTwice, kPointInPixels, convert<2>);
  addTextBounds<Position>(kPositionFromText, Goal::kNone, kPositionNumbers);
  addArrayBound<Position>(kPositionFromArray, Goal::atMost(3), kPositionNumbers.numbers);
}

[[maybe_unused]] const bool added = addContender(addPositionBounds);

}  // namespace
}  // namespace peers
