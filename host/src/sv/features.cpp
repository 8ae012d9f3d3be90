#include <sv/features.h>
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
  if ((status & mask) != mask) status |= mask;
}
void svClearVGStatus(int mask) noexcept {
  if ((status & mask) != 0) status &= ~mask;
}
