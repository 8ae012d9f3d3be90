#include "session/Objects.h"

#include "Classes.h"
#include "Errors.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <vx/objects.h>

#include <utility>

namespace vgdt {
namespace {

using graphics::datatype::HandleOrEmpty;

vcos::COSPropInfo& parentProperty(const SessionObject& object) {
  return requireProperty(object.ownClass(), "Parent");
}

}  // namespace

Objects::Objects() {
  add(kRoot, requireClass("Root"), nullptr);
}

Objects::~Objects() {
  for (const SessionObject& object : living_)
    vcos::COSClass::destroyObject(object.object());
}

SessionObject* Objects::find(std::string_view name) noexcept {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second.get();
}

SessionObject* Objects::find(const vcos::COSInterface& object) noexcept {
  SessionObject* const found = find(nameOf(object));
  return found && found->object().get() == &object ? found : nullptr;
}

SessionObject& Objects::requireLiving(std::string_view name) {
  SessionObject* const found = find(name);
  if (!found)
    throw RequestError(
        fmt::format("there is no object \"{}\"{}", shortened(name),
                    nearestOr(name, livingNames(), "\"objects\" lists those there are")));
  if (!found->isLiving())
    throw RequestError(
        fmt::format("the object \"{}\" has been destroyed; \"objects\" lists those that live",
                    shortened(name)));
  return *found;
}

SessionObject& Objects::add(std::string name, const vcos::COSClass& ownClass,
                            const SessionObject* parent) {
  auto added = std::make_unique<SessionObject>(name, ownClass, count_);
  if (parent) {
    const vcos::ArrayOwner array(omCreateVCOSScalar(parent->object()));
    parentProperty(*added).setFromArray(added->object().get(), array.get());
  }
  SessionObject& result = *added;
  // The last thing that can fail. A destroyed object that had the name loses it.
  byName_.insert_or_assign(std::move(name), std::move(added));
  ++count_;
  living_.push_back(result);
  noteParent(result);
  return result;
}

void Objects::noteParent(SessionObject& object) noexcept {
  object.sibling_.unlink();
  const vcos::COSValue value = parentProperty(object).getValue(object.object().get());
  const auto* const handle = value.asPointer<const HandleOrEmpty>();
  const vcos::COSInterfacePtr parent = handle ? handle->getCOSReference() : vcos::COSInterfacePtr();
  if (SessionObject* const known = parent ? find(*parent.get()) : nullptr)
    known->children_.insert(object);
}

SessionObject* Objects::beginDeletion(SessionObject& object, SessionObject* deletedWith) noexcept {
  object.isBeingDeleted_ = true;
  object.deletedWith_ = deletedWith;
  for (SessionObject& child : object.children_) {
    child.doomed_.unlink();
    object.toDelete_.push_back(child);
  }
  return &object;
}

void Objects::remove(SessionObject& first) noexcept {
  const auto mayBegin = [this](const SessionObject& object) {
    return object.isLiving() && !object.isBeingDeleted_ && &object != &root();
  };
  // A chain of any length must not take a stack of that depth.
  SessionObject* current = mayBegin(first) ? beginDeletion(first, nullptr) : nullptr;
  while (current) {
    if (!current->toDelete_.empty()) {
      SessionObject& child = current->toDelete_.front();
      child.doomed_.unlink();
      if (mayBegin(child)) current = beginDeletion(child, current);
      continue;
    }
    vcos::COSClass::destroyObject(current->object());
    current->among_.unlink();
    current->sibling_.unlink();
    current = std::exchange(current->deletedWith_, nullptr);
  }
}

std::vector<std::string> Objects::livingNames() const {
  std::vector<std::string> names;
  for (const SessionObject& object : living_)
    names.push_back(object.name());
  return names;
}

}  // namespace vgdt
