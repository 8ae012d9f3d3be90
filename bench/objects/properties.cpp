#include "properties.h"

#include "SampleClasses.h"

#include <utility>
#include <vector>

namespace properties {
namespace {

std::vector<std::pair<const char*, void (*)()>>& contenders() {
  static std::vector<std::pair<const char*, void (*)()>> list;
  return list;
}

vcos::COSInterface* line() {
  static const vcos::COSInterfacePtr made = sample::findClass("Line")->createObject();
  return made.get();
}

vcos::COSPropInfo& find(vcos::COSInterface* object, const char* name) {
  return *vcos::COSPropInfoPtr(object->findProperty(vcos::COSNameID(name))).getObject();
}

}  // namespace

void addLibrary() {
  compete(
      kOurs,
      [](const char* name, const char* text) { find(line(), name).setFromText(line(), text); },
      [](const char* name) {
        const vcos::COSPropInfo& property = find(line(), name);
        return property.getTypeAccess().toText(property.getValue(line())).value_or("");
      },
      [](const std::string& text) { return text; });
}

bool addContender(const char* name, void (*add)()) {
  contenders().emplace_back(name, add);
  return true;
}

void addContenders() {
  using measuring::Goal;
  for (const auto& [name, add] : contenders()) {
    add();
    for (const Work& work : kWorks) {
      for (const char* kind : {"set", "get"}) {
        const std::string both = std::string(kind) + "/" + work.name;
        measuring::compareTimes({both, name, both + "/" + kOurs, both + "/" + name,
                                 kind == std::string("set") ? Goal::atMost(0.6) : Goal::kNone});
      }
    }
  }
}

}  // namespace properties
