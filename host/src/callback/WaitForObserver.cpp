#include <callback/WaitForObserver.h>
#include <ut/faults.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

/// Never destroyed: observers may be statics that end late.
std::vector<WaitForObserver*>& observers() {
  static auto& all = *new std::vector<WaitForObserver*>;
  return all;
}

constinit std::size_t waits = 0;

}  // namespace

WaitForObserver::WaitForObserver() {
  observers().push_back(this);
}

WaitForObserver::~WaitForObserver() {
  std::erase(observers(), this);
}

namespace vghost {

void startWait() {
  faults::countHostCall("startWait");
  std::size_t told = 0;
  try {
    for (; told < observers().size(); ++told)
      observers()[told]->waitForStarted();
  } catch (...) {
    while (told > 0)
      observers()[--told]->waitForFinished();
    throw;
  }
  ++waits;
}

bool finishWait() {
  if (waits == 0) return false;
  --waits;
  for (std::size_t i = 0; i < observers().size(); ++i)
    observers()[i]->waitForFinished();
  return true;
}

}  // namespace vghost
