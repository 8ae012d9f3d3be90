#include "ObjectNames.h"

#include <SampleClasses.h>

#include <functional>
#include <utility>

namespace vgdt {
namespace {

struct ObjectOf {
  using type = const vcos::COSInterface*;
  type operator()(const ObjectName& name) const noexcept { return name.object().get(); }
};

using Names = boost::intrusive::set<ObjectName, boost::intrusive::constant_time_size<false>,
                                    boost::intrusive::key_of_value<ObjectOf>,
                                    boost::intrusive::compare<std::less<>>>;

/// Never destroyed: whoever has names may end late.
Names& names() {
  static Names& all = *new Names;
  return all;
}

}  // namespace

ObjectName::ObjectName(std::string name, vcos::COSInterfacePtr object)
    : name_(std::move(name)),
      object_(std::move(object)) {
  names().insert(*this);
}

std::string_view nameOf(const vcos::COSInterface& object) noexcept {
  const auto found = names().find(&object);
  return found == names().end() ? std::string_view() : found->name();
}

std::string_view shownName(const vcos::COSInterface& object) noexcept {
  const std::string_view name = nameOf(object);
  return name.empty() ? sample::shortName(*object.getClass()) : name;
}

}  // namespace vgdt
