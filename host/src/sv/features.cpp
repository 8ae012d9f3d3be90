#include <sv/features.h>
#include <sys/single_threaded.h>
#include <ut/faults.h>

#include <algorithm>
#include <atomic>
#include <forward_list>
#include <string>
#include <string_view>

namespace {

struct Feature {
  std::string name;
  svFeatureEntry entry;
};

/// There are few. They stay where they are, since callers keep pointers to them.
std::forward_list<Feature>& features() {
  static auto& entries = *new std::forward_list<Feature>;
  return entries;
}

svFeatureEntry* find(std::string_view name) {
  const auto found = std::ranges::find(features(), name, &Feature::name);
  return found == features().end() ? nullptr : &found->entry;
}

constinit std::atomic<int> status = 0;

/// Several threads may change the status at once. While the process has one thread, which the C
/// library knows, nothing is locked.
template <class Change>
void changeStatus(Change change) noexcept {
  int before = status.load(std::memory_order_relaxed);
  if (__libc_single_threaded) return status.store(change(before), std::memory_order_relaxed);
  while (!status.compare_exchange_weak(before, change(before))) {
  }
}

}  // namespace

void svRegisterFeature(const char* name, int state, void (*onChange)(int),
                       void (*command)(int, vxArray**, int, vxArray**)) {
  vghost::faults::countHostCall("svRegisterFeature");
  svFeatureEntry* entry = find(name);
  if (!entry) {
    Feature& added = features().emplace_front(Feature{name, {}});
    entry = &added.entry;
    entry->name = added.name.c_str();
  }
  *entry = {entry->name, state, onChange, command};
}

const svFeatureEntry* svFindFeatureEntry(const char* name) {
  return find(name);
}

bool svIsFeatureEnabled(const char* name) {
  const svFeatureEntry* entry = find(name);
  return entry && entry->state == 1;
}

bool svSetFeatureState(const char* name, int state) {
  svFeatureEntry* entry = find(name);
  if (!entry) return false;
  entry->state = state;
  if (entry->onChange) entry->onChange(state);
  return true;
}

int svGetVGStatus() noexcept {
  return status;
}
void svSetVGStatus(int mask) noexcept {
  changeStatus([mask](int before) { return before | mask; });
}
void svClearVGStatus(int mask) noexcept {
  changeStatus([mask](int before) { return before & ~mask; });
}
