#include "ObjectNames.h"

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

/// Never destroyed: whoever has names may end late. The host shows objects by them too.
Names& names() {
  static Names& all = []() -> Names& {
    vghost::setObjectNaming(nameOf);
    return *new Names;
  }();
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

}  // namespace vgdt
