#include "Classes.h"

#include "Errors.h"
#include "text/Nearest.h"
#include "text/TextDisplay.h"

#include <SampleClasses.h>
#include <fmt/format.h>

#include <algorithm>

namespace vgdt {
namespace {

vcos::COSPropInfo& asProperty(const vcos::COSInterfacePtr& found) {
  return *vcos::COSPropInfoPtrHelper().getObject(found);
}

/// Of a class that has no property or event of that name.
[[noreturn]] void refuseName(const vcos::COSClass& owner, std::string_view name, const char* kind,
                             const char* kinds, const std::vector<std::string>& names) {
  throw RequestError(fmt::format(
      "the class {} has no {} \"{}\"{}", sample::shortName(owner), kind, shortened(name),
      nearestOr(name, names, fmt::format("its {} are {}", kinds, fmt::join(names, ", ")))));
}

}  // namespace

std::string nearestOr(std::string_view name, const std::vector<std::string>& names,
                      std::string_view others) {
  const auto nearest = nearestName(name, names);
  return nearest ? fmt::format("; did you mean \"{}\"?", *nearest) : fmt::format("; {}", others);
}

const vcos::COSClass& requireClass(std::string_view name) {
  if (const vcos::COSClass* found = sample::findClass(name)) return *found;
  const std::vector<std::string> names = classNames();
  throw RequestError(fmt::format(
      "there is no class \"{}\"{}", shortened(name),
      nearestOr(name, names, fmt::format("the classes are {}", fmt::join(names, ", ")))));
}

std::vector<std::string> classNames() {
  std::vector<std::string> names;
  for (const vcos::COSClass* known : sample::classes())
    names.emplace_back(sample::shortName(*known));
  return names;
}

vcos::COSPropInfo& requireProperty(const vcos::COSClass& owner, std::string_view name) {
  const auto known = vcos::COSNameID::find(name);
  if (const auto found = known ? owner.findProperty(*known) : vcos::COSInterfacePtr())
    return asProperty(found);
  refuseName(owner, name, "property", "properties", propertyNames(owner));
}

std::vector<std::string> propertyNames(const vcos::COSClass& owner) {
  std::vector<std::string> names;
  for (const vcos::COSInterfacePtr& property : owner.properties())
    names.emplace_back(asProperty(property).getName());
  return names;
}

vcos::COSNameID requireEvent(const vcos::COSClass& owner, std::string_view name) {
  const auto found = std::ranges::find(owner.events(), name, &vcos::COSNameID::c_str);
  if (found == owner.events().end()) refuseName(owner, name, "event", "events", eventNames(owner));
  return *found;
}

std::vector<std::string> eventNames(const vcos::COSClass& owner) {
  std::vector<std::string> names;
  for (const vcos::COSNameID event : owner.events())
    names.emplace_back(event.c_str());
  return names;
}

Type typeOf(const vcos::COSPropInfo& property) {
  const vcos::TypeAccess& access = property.getTypeAccess();
  return {access.dataType().getName(), access, false};
}

}  // namespace vgdt
