#include "session/Objects.h"

#include "Classes.h"
#include "Errors.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <vx/objects.h>

#include <utility>
#include <vector>

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

void Objects::add(const std::string& name, const vcos::COSClass& ownClass,
                  const SessionObject* parent) {
  auto added = std::make_unique<SessionObject>(name, ownClass, count_);
  if (parent) {
    const vcos::ArrayOwner array(omCreateVCOSScalar(parent->object()));
    parentProperty(*added).setFromArray(added->object().get(), array.get());
  }
  SessionObject& object = *added;
  const vcos::COSInterfacePtr made = object.object();
  // A destroyed object that had the name loses it.
  byName_.insert_or_assign(name, std::move(added));
  ++count_;
  living_.push_back(object);
  noteParent(object);
  try {
    static const vcos::COSNameID creation("Create");
    ownClass.fireEvent(creation, made, nullptr);
  } catch (...) {
    if (SessionObject* const known = find(*made.get())) {
      destroy(*known);
      byName_.erase(name);
    }
    throw;
  }
}

void Objects::noteParent(SessionObject& object) noexcept {
  object.sibling_.unlink();
  const vcos::COSValue value = parentProperty(object).getValue(object.object().get());
  const auto* const handle = value.asPointer<const HandleOrEmpty>();
  const vcos::COSInterfacePtr parent = handle ? handle->getCOSReference() : vcos::COSInterfacePtr();
  if (SessionObject* const known = parent ? find(*parent.get()) : nullptr)
    known->children_.insert(object);
}

void Objects::destroy(SessionObject& object) noexcept {
  vcos::COSClass::destroyObject(object.object());
  object.among_.unlink();
  object.sibling_.unlink();
}

void Objects::remove(SessionObject& first) {
  static const vcos::COSNameID deletion("Delete");
  // What is being deleted, each one with the one before; a chain of any length must not take a
  // stack of that depth.
  std::vector<SessionObject*> path;
  const auto begin = [this, &path](SessionObject& object) {
    if (!object.isLiving() || object.isBeingDeleted_ || &object == &root()) return;
    path.push_back(&object);
    object.isBeingDeleted_ = true;
    object.ownClass().fireEvent(deletion, object.object(), nullptr);
    for (SessionObject& child : object.children_) {
      child.doomed_.unlink();
      object.toDelete_.push_back(child);
    }
  };
  try {
    begin(first);
    while (!path.empty()) {
      SessionObject& current = *path.back();
      if (current.toDelete_.empty()) {
        destroy(current);
        path.pop_back();
      } else {
        SessionObject& child = current.toDelete_.front();
        child.doomed_.unlink();
        begin(child);
      }
    }
  } catch (...) {
    for (SessionObject* const object : path) {
      object->isBeingDeleted_ = false;
      object->toDelete_.clear();
    }
    throw;
  }
}

std::vector<std::string> Objects::livingNames() const {
  std::vector<std::string> names;
  for (const SessionObject& object : living_)
    names.push_back(object.name());
  return names;
}

}  // namespace vgdt
