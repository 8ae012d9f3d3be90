// Qt: a signal with one slot.

#include "contest.h"

#include <QObject>

namespace callbacks {

class QtSource : public QObject {
  Q_OBJECT

 public:
  Q_SIGNAL void pressed(Target* pressedOn);
};

namespace {

[[maybe_unused]] const bool added = addContender([] {
  static QtSource source;
  QObject::connect(&source, &QtSource::pressed,
                   [](Target* pressedOn) { pressedOn->handle(kPress); });
  addFiring("fire/Qt", target().handled, [] { Q_EMIT source.pressed(&target()); });
  compare("fire", "Qt", measuring::Goal::kNone);
});

}  // namespace
}  // namespace callbacks

#include "QtPeer.moc"
