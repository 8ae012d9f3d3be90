#include "CountedObject.h"

#include <utility>

namespace vcos {

void CountedObject::lastReferenceGone() noexcept {
  watches_.clear_and_dispose([](ObjectWatch* watch) { watch->objectGone(); });
  static constinit thread_local CountedObject* waiting = nullptr;
  static constinit thread_local bool isDeleting = false;
  nextToDelete_ = std::exchange(waiting, this);
  if (isDeleting) return;
  isDeleting = true;
  while (waiting)
    delete std::exchange(waiting, waiting->nextToDelete_);
  isDeleting = false;
}

}  // namespace vcos
