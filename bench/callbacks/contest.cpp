#include "contest.h"

#include <vector>

namespace callbacks {
namespace {

std::vector<void (*)()>& contenders() {
  static std::vector<void (*)()> list;
  return list;
}

[[gnu::noinline]] void count(Target& target) {
  ++target.handled;
}

}  // namespace

Target::Target() : handlers_{{kPress, count}, {"Create", count}, {"Delete", count}} {}

Target& target() {
  static Target made;
  return made;
}

bool addContender(void (*add)()) {
  contenders().push_back(add);
  return true;
}

void addContenders() {
  for (const auto& add : contenders())
    add();
}

void compare(const std::string& work, const std::string& peer, measuring::Goal goal) {
  measuring::compareTimes({work, peer, work + "/" + kOurs, work + "/" + peer, goal});
}

void compareQueues(const std::string& peer) {
  for (const QueueSize& size : kSizes)
    compare(std::string("queue/") + size.text, peer, measuring::Goal::kAhead);
}

}  // namespace callbacks
