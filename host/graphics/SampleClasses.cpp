#include "SampleClasses.h"

#include "ClassRows.h"

#include <graphics/datatype/listeners.h>
#include <graphics/datatype/registration.h>
#include <vcos/COSPackage.h>
#include <vcos/TypeAccess.h>

#include <algorithm>
#include <memory>
#include <string>

namespace sample {
namespace {

using vcos::COSClass;
using vcos::COSNameID;

COSNameID typeNamed(const std::string& name) {
  return COSNameID(name == "string" ? "string" : ("vortil.graphics.datatype." + name).c_str());
}

void addProperty(COSClass& target, const PropertyRow& row) {
  const COSNameID name(row.name);
  const COSNameID type = typeNamed(row.type);
  target.addProperty(row.name, type);
  if (row.defaultText) {
    const vcos::TypeAccess access = vcos::TypeAccess::find(type).value();
    const vcos::OwnedValue value(access.dataType(), access.fromText(row.defaultText));
    target.setDefault(name, value.get());
  }
  if (row.hook) target.setHook(name, row.hook);
}

void addEvent(COSClass& target, const EventRow& row) {
  using namespace graphics::datatype;
  const COSNameID name(row.name);
  target.addEvent(name, row.kind);
  target.addListener(name, row.kind == vcos::COSEventKind::OfClass
                               ? createClassListener(row.callback, row.interruptibleAware, false)
                               : createListener(row.callback, row.interruptibleAware));
}

const char* noText(const char*) {
  return "";
}

void addToPackage(COSClass& added) {
  const std::string name = added.getName();
  vcos::COSPackage& package = *graphics::datatype::register_package(
      name.substr(0, name.rfind('.')).c_str(), noText, noText);
  if (!package.getClass(added.getNameID())) package.addClass(&added);
}

struct Classes {
  std::vector<std::unique_ptr<COSClass>> all;
  std::vector<const COSClass*> concrete;

  const COSClass* find(std::string_view name) const {
    const auto found =
        std::ranges::find_if(all, [&](const auto& known) { return known->getName() == name; });
    return found == all.end() ? nullptr : found->get();
  }

  void define(const ClassRow& row) {
    all.push_back(std::make_unique<COSClass>(row.name, find(row.base)));
    COSClass& defined = *all.back();
    for (const std::span<const PropertyRow> group : row.properties)
      for (const PropertyRow& property : group)
        addProperty(defined, property);
    if (*row.base == '\0')
      for (const EventRow& event : eventRows())
        addEvent(defined, event);
    if (!row.isAbstract) concrete.push_back(&defined);
  }

  void addToPackages() const {
    for (const auto& each : all)
      if (std::ranges::find(concrete, each.get()) != concrete.end()) addToPackage(*each);
  }
};

const Classes& definedClasses() {
  static const Classes& defined = *[] {
    auto classes = std::make_unique<Classes>();
    for (const ClassRow& row : classRows())
      classes->define(row);
    return classes.release();
  }();
  // Packages keep the classes, so none is told of them while they may still go.
  [[maybe_unused]] static const bool areKnown = (defined.addToPackages(), true);
  return defined;
}

}  // namespace

const std::vector<const COSClass*>& classes() {
  return definedClasses().concrete;
}

const COSClass* findClass(std::string_view name) {
  const auto found = std::ranges::find_if(classes(), [&](const COSClass* known) {
    return known->getName() == name || shortName(*known) == name;
  });
  return found == classes().end() ? nullptr : *found;
}

std::string_view shortName(const COSClass& sampleClass) {
  const std::string_view name = sampleClass.getName();
  return name.substr(name.rfind('.') + 1);
}

}  // namespace sample
