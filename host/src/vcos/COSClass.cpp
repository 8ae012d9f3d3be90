#include "CountedObject.h"

#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vcos/TypeAccess.h>
#include <vcos/exceptions.h>

#include <memory>
#include <utility>

namespace vcos {

COSInterface::~COSInterface() = default;
COSPropInfo::~COSPropInfo() = default;

namespace {

/// An object is a word for each property of its class, in the order of the class's properties.
class Object final : public CountedObject {
 public:
  explicit Object(const COSClass& ownClass) : class_(ownClass) {}
  ~Object() override { destroyValues(); }

  bool isDestroyed() const override { return destroyed_; }
  COSClass* getClass() const override { return const_cast<COSClass*>(&class_); }
  COSInterfacePtr findProperty(COSNameID name) const override {
    return destroyed_ ? COSInterfacePtr() : class_.findProperty(name);
  }

  void initialize();
  void destroyValues() noexcept;

  COSValue& value(std::size_t index) {
    if (destroyed_) throw COSMsgException("The object has been destroyed.");
    return values_[index];
  }

 private:
  const COSClass& class_;
  std::vector<COSValue> values_;
  bool destroyed_ = false;
};

class Property final : public CountedObject, public COSPropInfo {
 public:
  Property(COSNameID name, COSDataTypePtr type, std::size_t index)
      : name_(name),
        type_(std::move(type)),
        index_(index) {}

  COSNameID nameID() const noexcept { return name_; }
  COSDataType& type() const { return *type_.getObject(); }

  const char* getName() const override { return name_.c_str(); }
  COSDataTypePtr getDataType() const override { return type_; }

  COSValue getValue(const COSInterface* object) const override { return held(object); }

  void setValue(COSInterface* object, COSValue value) override {
    vghost::faults::countHostCall("setValue");
    COSValue& word = held(object);
    const COSValue old = std::exchange(word, copyValue(type(), value));
    destroyValue(type(), old);
  }

 private:
  /// The word on an object, which has to be of a class with this very property.
  COSValue& held(const COSInterface* object) const {
    const auto* owner = dynamic_cast<const Object*>(object);
    if (!owner || owner->getClass()->findProperty(name_).get() != this)
      throw COSMsgException(std::string("The object has no property ") + getName() + ".");
    return const_cast<Object*>(owner)->value(index_);
  }

  COSNameID name_;
  COSDataTypePtr type_;
  std::size_t index_;
};

const Property& propertyOf(const COSInterfacePtr& pointer) {
  return static_cast<const Property&>(*pointer.get());
}

void Object::initialize() {
  values_.reserve(class_.properties().size());
  for (const COSInterfacePtr& property : class_.properties()) {
    const COSDataType& type = propertyOf(property).type();
    values_.push_back(copyValue(type, type.getDefaultValue()));
  }
}

void Object::destroyValues() noexcept {
  for (std::size_t i = 0; i < values_.size(); ++i)
    destroyValue(propertyOf(class_.properties()[i]).type(), values_[i]);
  values_.clear();
  destroyed_ = true;
}

}  // namespace

COSPropInfo* COSPropInfoPtrHelper::getObject(const COSInterfacePtr& property) const noexcept {
  return dynamic_cast<Property*>(property.get());
}

COSClass::COSClass(const char* name, const COSClass* base) : name_(name), base_(base) {
  if (base) properties_ = base->properties_;
}

COSClass::~COSClass() = default;

const char* COSClass::getName() const noexcept {
  return name_.c_str();
}
COSNameID COSClass::getNameID() const noexcept {
  return name_;
}

bool COSClass::isA(COSNameID name) const noexcept {
  return name_ == name || (base_ && base_->isA(name));
}

void COSClass::addProperty(const char* name, COSNameID type) {
  vghost::faults::countHostCall("addProperty");
  const COSNameID nameID(name);
  COSDataTypePtr dataType = COSTypeRepository::getType(type);
  if (!dataType.getObject())
    throw COSMsgException(std::string("There is no type ") + type.c_str() + ".");
  if (findProperty(nameID))
    throw COSMsgException(std::string("The class ") + getName() + " has a property " + name +
                          " already.");
  COSInterfacePtr property(new Property(nameID, std::move(dataType), properties_.size()));
  properties_.push_back(std::move(property));
}

COSInterfacePtr COSClass::findProperty(COSNameID name) const {
  for (const COSInterfacePtr& property : properties_)
    if (propertyOf(property).nameID() == name) return property;
  return {};
}

COSInterfacePtr COSClass::createObject() const {
  auto* object = new Object(*this);
  COSInterfacePtr owner(object);
  object->initialize();
  return owner;
}

void COSClass::destroyObject(const COSInterfacePtr& object) noexcept {
  static_cast<Object*>(object.get())->destroyValues();
}

}  // namespace vcos
