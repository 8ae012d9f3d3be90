#include "Event.h"
#include "Object.h"

#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vcos/exceptions.h>

#include <optional>
#include <string>
#include <utility>

namespace vcos {

using vghost::faults::countHostCall;

COSInterface::~COSInterface() = default;
void COSInterface::addWatch(ObjectWatch&) noexcept {}
COSPropInfo::~COSPropInfo() = default;

namespace {

class Property final : public CountedObject, public COSPropInfo {
 public:
  Property(COSNameID name, COSDataTypePtr type, const TypeAccess& access, std::size_t place)
      : name_(name),
        type_(std::move(type)),
        access_(access),
        place_(place),
        holdsNothing_(vcos::holdsNothing(access.dataType(), {})) {}

  COSNameID nameID() const noexcept { return name_; }
  std::size_t place() const noexcept { return place_; }
  const COSDataType& dataType() const noexcept { return access_.dataType(); }
  void setDefault(COSValue value) { default_.emplace(dataType(), copyValue(dataType(), value)); }
  void setHook(COSPropertyHook hook) noexcept { hook_ = hook; }
  void destroy(HeldWord held) const noexcept {
    if (held.isOwn && !holdsNothing_) dataType().destroy(held.word);
  }

  const char* getName() const override { return name_.c_str(); }
  COSDataTypePtr getDataType() const override { return type_; }
  const TypeAccess& getTypeAccess() const override { return access_; }

  COSValue getValue(const COSInterface* object) const override {
    const HeldWord held = ownerOf(const_cast<COSInterface*>(object)).held(place_);
    return held.isOwn ? held.word : defaultWord();
  }

  void setValue(COSInterface* object, COSValue value) override {
    countHostCall("setValue");
    set(object, [&] { return copyValue(dataType(), value); });
  }
  void setFromArray(COSInterface* object, const vxArray* value) override {
    countHostCall("setFromArray");
    set(object, [&] { return access_.fromArray(value); });
  }
  void setFromText(COSInterface* object, const char* text) override {
    countHostCall("setFromText");
    set(object, [&] { return access_.fromText(text); });
  }

 private:
  /// A living object of a class with this very property.
  Object& ownerOf(COSInterface* object) const {
    Object* const owner = exactCast<Object>(object);
    const auto* properties = owner ? &owner->getClass()->properties() : nullptr;
    if (!properties || place_ >= properties->size() || (*properties)[place_].get() != this)
      throw COSMsgException(std::string("The object has no property ") + getName() + ".");
    requireAlive(*owner);
    return *owner;
  }

  static void requireAlive(const Object& object) {
    if (object.isDestroyed()) throw COSMsgException("The object has been destroyed.");
  }

  COSValue defaultWord() const {
    if (default_) return default_->get();
    return holdsNothing_ ? COSValue() : dataType().getDefaultValue();
  }

  /// Puts in what `make` gives; null if the type has nothing to hold.
  template <class Make>
  void set(COSInterface* object, Make&& make) const {
    Object& owner = ownerOf(object);
    const COSInterfacePtr alive(&owner);
    owner.reserve(place_);
    const COSValue made = make();
    const HeldWord held{holdsNothing_ ? COSValue() : made, true};
    if (owner.isDestroyed()) {  // by what making it led to
      destroy(held);
      requireAlive(owner);
    }
    const HeldWord old = owner.replace(place_, held);
    if (hook_) runHook(owner, held.word, old);
    destroy(old);
  }

  void runHook(Object& owner, COSValue word, HeldWord old) const {
    try {
      hook_(&owner, word);
    } catch (...) {
      destroy(owner.isDestroyed() ? old : owner.replace(place_, old));
      throw;
    }
  }

  COSNameID name_;
  COSDataTypePtr type_;
  TypeAccess access_;
  std::size_t place_;
  bool holdsNothing_;  ///< values of the type have 0 bytes
  std::optional<OwnedValue> default_;
  COSPropertyHook hook_ = nullptr;
};

const Property& propertyAt(const COSClass& owner, std::size_t place) {
  return static_cast<const Property&>(*owner.properties()[place].get());
}

}  // namespace

HeldWord Object::replace(std::size_t place, HeldWord word) noexcept {
  return std::exchange(values_[place], word);
}

void Object::destroyValues() noexcept {
  // What a value's end leads to finds an object without values.
  isDestroyed_ = true;
  const std::vector<HeldWord> values = std::exchange(values_, {});
  for (std::size_t place = 0; place < values.size(); ++place)
    propertyAt(class_, place).destroy(values[place]);
}

COSPropInfo* COSPropInfoPtrHelper::getObject(const COSInterfacePtr& property) const noexcept {
  return exactCast<Property>(property.get());
}

COSClass::COSClass(const char* name, const COSClass* base)
    : name_(name),
      base_(base),
      description_(new CountedObject) {
  if (!base) return;
  properties_ = base->properties_;
  propertiesByName_ = base->propertiesByName_;
  events_ = base->events_;
  eventsByName_ = base->eventsByName_;
  base->isBase_ = true;
}

COSClass::~COSClass() = default;

const char* COSClass::getName() const noexcept {
  return name_.c_str();
}
COSNameID COSClass::getNameID() const noexcept {
  return name_;
}

bool COSClass::isA(COSNameID name) const noexcept {
  for (const COSClass* candidate = this; candidate; candidate = candidate->base_)
    if (candidate->name_ == name) return true;
  return false;
}

void COSClass::addProperty(const char* name, COSNameID type) {
  countHostCall("addProperty");
  const COSNameID nameID(name);
  COSDataTypePtr dataType = COSTypeRepository::getType(type);
  const auto access = TypeAccess::find(type);
  if (!access) throw COSMsgException(std::string("There is no type ") + type.c_str() + ".");
  if (findProperty(nameID))
    throw COSMsgException(std::string("The class ") + getName() + " has a property " + name +
                          " already.");
  requireNoDerivedClass();
  COSInterfacePtr property(new Property(nameID, std::move(dataType), *access, properties_.size()));
  properties_.reserve(properties_.size() + 1);
  propertiesByName_.emplace(nameID, property.get());
  properties_.push_back(std::move(property));
}

void COSClass::requireNoDerivedClass() const {
  if (isBase_)
    throw COSMsgException(std::string("Another class derives from ") + getName() + " already.");
}

COSInterface& COSClass::ownProperty(COSNameID name) const {
  const COSInterfacePtr found = findProperty(name);
  const bool isInherited = base_ && base_->findProperty(name) == found;
  if (!found || isInherited)
    throw COSMsgException(std::string("The class ") + getName() + " has no property " +
                          name.c_str() + " of its own.");
  return *found.get();
}

void COSClass::setDefault(COSNameID property, COSValue value) {
  countHostCall("setDefault");
  static_cast<Property&>(ownProperty(property)).setDefault(value);
}

void COSClass::setHook(COSNameID property, COSPropertyHook hook) {
  static_cast<Property&>(ownProperty(property)).setHook(hook);
}

COSInterfacePtr COSClass::findProperty(COSNameID name) const {
  const auto found = propertiesByName_.find(name);
  return COSInterfacePtr(found == propertiesByName_.end() ? nullptr : found->second);
}

Event& COSClass::requireEvent(COSNameID name) const {
  const auto found = eventsByName_.find(name);
  if (found == eventsByName_.end())
    throw COSMsgException(std::string("The class ") + getName() + " has no event " + name.c_str() +
                          ".");
  return *found->second;
}

void COSClass::addEvent(COSNameID name, COSEventKind kind) {
  countHostCall("addEvent");
  requireNoDerivedClass();
  auto added = std::make_shared<Event>(kind);
  events_.reserve(events_.size() + 1);
  if (!eventsByName_.emplace(name, std::move(added)).second)
    throw COSMsgException(std::string("The class ") + getName() + " has an event " + name.c_str() +
                          " already.");
  events_.push_back(name);
}

void COSClass::addListener(COSNameID event, COSListener* listener) {
  std::unique_ptr<COSListener> owned(listener);
  countHostCall("addListener");
  requireEvent(event).add(std::move(owned));
}

void COSClass::fireEvent(COSNameID event, const COSInterfacePtr& object,
                         const vxArray* data) const {
  countHostCall("fireEvent");
  requireEvent(event).fire(description_, object, data);
}

COSInterfacePtr COSClass::createObject() const {
  countHostCall("createObject");
  return COSInterfacePtr(new Object(*this));
}

void COSClass::destroyObject(const COSInterfacePtr& object) noexcept {
  if (Object* const found = exactCast<Object>(object.get())) found->destroyValues();
}

}  // namespace vcos
