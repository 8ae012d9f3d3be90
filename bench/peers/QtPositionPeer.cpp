// Qt: a rectangle and a point that a transformation scales. Qt knows no units, so the scales are
// given.

#include "positions.h"

#include <QPointF>
#include <QRectF>
#include <QTransform>

namespace peers {
namespace {

template <class Coordinates>
struct Scaling {
  double x;
  double y;
  Coordinates coordinates;
};

Rectangle numbersOf(const QRectF& rectangle) {
  return {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()};
}

void addRectangle(const char* work, const Task<Conversion<4>, 4>& task) {
  using Given = Scaling<QRectF>;
  const auto& [left, bottom, width, height] = task.given.coordinates;
  const QRectF rectangle(left, bottom, width, height);
  const Given given{task.numbers[0] / left, task.numbers[1] / bottom, rectangle};
  competeInMaking(
      work, "Qt", Goal::kAhead, Task<Given, 4>{given, task.numbers},
      [](const Given& scaling) {
        return QTransform::fromScale(scaling.x, scaling.y).mapRect(scaling.coordinates);
      },
      numbersOf);
  const QTransform transform = QTransform::fromScale(given.x, given.y);
  competeInMaking(
      work, "Qt-ready", Goal::kNone, Task<QRectF, 4>{rectangle, task.numbers},
      [transform](const QRectF& unscaled) { return transform.mapRect(unscaled); }, numbersOf);
}

void addPoint() {
  using Given = Scaling<QPointF>;
  const auto& [x, y] = kPointInPixels.given.coordinates;
  const Given given{kPointInPixels.numbers[0] / x, kPointInPixels.numbers[1] / y, QPointF(x, y)};
  competeInMaking(
      kPointToPixels, "Qt", Goal::kAhead, Task<Given, 2>{given, kPointInPixels.numbers},
      [](const Given& scaling) {
        return QTransform::fromScale(scaling.x, scaling.y).map(scaling.coordinates);
      },
      [](const QPointF& mapped) {
        return Numbers<2>{mapped.x(), mapped.y()};
      });
}

void addQtPositions() {
  addRectangle(kPositionToPixels, kRectangleInPixels);
  addRectangle(kPositionToPoints, kRectangleInPoints);
  addPoint();
}

[[maybe_unused]] const bool added = addContender(addQtPositions);

}  // namespace
}  // namespace peers
