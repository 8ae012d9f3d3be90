// Tcl: its queue of events.

#include "contest.h"

#include <tcl.h>

namespace callbacks {
namespace {

/// Tcl's part comes first.
struct PressEvent {
  Tcl_Event base;
  Target* pressedOn;
};

int press(Tcl_Event* event, int) {
  reinterpret_cast<PressEvent*>(event)->pressedOn->handle(kPress);
  return 1;
}

void queueAndServe(std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    auto* event = reinterpret_cast<PressEvent*>(Tcl_Alloc(sizeof(PressEvent)));
    *event = {{press, nullptr}, &target()};
    Tcl_QueueEvent(&event->base, TCL_QUEUE_TAIL);
  }
  while (Tcl_ServiceEvent(0) != 0) {
  }
}

[[maybe_unused]] const bool added = addContender([] {
  Tcl_FindExecutable(nullptr);
  addQueue("Tcl", target().handled, queueAndServe);
  compareQueues("Tcl");
});

}  // namespace
}  // namespace callbacks
