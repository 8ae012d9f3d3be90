#include <sv/features.h>
#include <ut/faults.h>

#include <map>
#include <string>
#include <string_view>

namespace {

/// Entries stay where they are, since callers keep pointers to them.
auto& features() {
  static auto& entries = *new std::map<std::string, svFeatureEntry, std::less<>>;
  return entries;
}

svFeatureEntry* find(const char* name) {
  const auto found = features().find(std::string_view(name));
  return found == features().end() ? nullptr : &found->second;
}

constinit int status = 0;

}  // namespace

void svRegisterFeature(const char* name, int state, void (*onChange)(int),
                       void (*command)(int, vxArray**, int, vxArray**)) {
  vghost::faults::countHostCall("svRegisterFeature");
  const auto entry = features().try_emplace(name).first;
  entry->second = {entry->first.c_str(), state, onChange, command};
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
  status |= mask;
}
void svClearVGStatus(int mask) noexcept {
  status &= ~mask;
}
