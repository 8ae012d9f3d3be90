// Boost.Signals2: a signal with one slot.

#include "contest.h"

#include <boost/signals2.hpp>

namespace callbacks {
namespace {

[[maybe_unused]] const bool added = addContender([] {
  static boost::signals2::signal<void(Target*)> pressed;
  pressed.connect([](Target* pressedOn) { pressedOn->handle(kPress); });
  addFiring("fire/signals2", target().handled, [] { pressed(&target()); });
  compare("fire", "signals2", measuring::Goal::kNone);
});

}  // namespace
}  // namespace callbacks
