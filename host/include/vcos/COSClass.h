#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/COSValue.h>
#include <vcos/TypeAccess.h>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vcos {

class COSListener;
class Event;

/// One property of a class: its name, its type, and its value on an object. An operation on an
/// object that is destroyed or has no such property is a COSException.
///
/// A failing set leaves the old value in place. While a value is set the object stays alive, also
/// if the old value holds the last reference to it.
class VGHOST_API COSPropInfo {
 public:
  virtual ~COSPropInfo();
  virtual const char* getName() const = 0;
  virtual COSDataTypePtr getDataType() const = 0;
  /// The word as it is held: it stays the object's, and is null if the type's values have 0 bytes.
  /// A property that has not been set yet holds its default.
  virtual COSValue getValue(const COSInterface* object) const = 0;
  /// Copies the word in, by copyValue(), runs the property's hook, and then destroys the old word.
  virtual void setValue(COSInterface* object, COSValue value) = 0;

  /// The type and its conversions.
  virtual const TypeAccess& getTypeAccess() const = 0;
  /// As setValue(), with what the type's conversion makes of a host array or of a text. Both stay
  /// the caller's. Whatever the conversion throws passes through.
  virtual void setFromArray(COSInterface* object, const vxArray* value) = 0;
  virtual void setFromText(COSInterface* object, const char* text) = 0;
};

struct VGHOST_API COSPropInfoPtrHelper {
  /// Null for a null pointer and for an object that stands for no property.
  COSPropInfo* getObject(const COSInterfacePtr& property) const noexcept;
};
using COSPropInfoPtr = COSSpecializedInterfacePtr<COSPropInfo*, COSPropInfoPtrHelper>;

/// What is to happen after a property was set: it gets the object and the word that the object now
/// holds. If it throws, the old value comes back, and the exception goes to whoever set the value.
using COSPropertyHook = void (*)(COSInterface* object, COSValue value);

/// Whom an event has as its source.
enum class COSEventKind {
  OfObject,
  OfClass,  ///< the class itself: a COSClassInstanceEventData tells the object
};

/// A class of objects: a dotted name, a base class, properties with their types, and events.
/// Classes live as long as the process.
class VGHOST_API COSClass {
 public:
  /// `base` may be null; the properties and events that it has by now are inherited.
  COSClass(const char* name, const COSClass* base);
  virtual ~COSClass();
  COSClass(const COSClass&) = delete;
  COSClass& operator=(const COSClass&) = delete;

  virtual const char* getName() const noexcept;
  virtual COSNameID getNameID() const noexcept;
  /// True when the class is the named one (by its whole dotted name) or derives from it.
  virtual bool isA(COSNameID name) const noexcept;

  /// Adds a property of a type that is registered by now; it starts with the type's default, also
  /// on the objects that there are. A COSException if the type is unknown, if the class has a
  /// property of that name, or if another class derives from this one already.
  void addProperty(const char* name, COSNameID type);
  /// Gives a property of this class (not an inherited one) a default of its own, which is copied,
  /// or a hook. A COSException if there is no such property.
  void setDefault(COSNameID property, COSValue value);
  void setHook(COSNameID property, COSPropertyHook hook);

  /// The property of that name, own or inherited, by one hash lookup; null if there is none.
  COSInterfacePtr findProperty(COSNameID name) const;
  /// All properties, inherited ones first.
  const std::vector<COSInterfacePtr>& properties() const noexcept { return properties_; }

  /// Adds an event. A COSException if the class has one of that name, or if another class derives
  /// from it already.
  void addEvent(COSNameID name, COSEventKind kind);
  /// Adds a listener to an event, own or inherited, which stays one event for all classes that have
  /// it. The event takes the listener over, also if this fails. A COSException if there is no such
  /// event.
  void addListener(COSNameID event, COSListener* listener);
  /// Fires an event of this class on one of its objects: all listeners are told before it returns.
  /// `data` stays the caller's and may be null. A COSException if there is no such event; what a
  /// listener throws passes through.
  void fireEvent(COSNameID event, const COSInterfacePtr& object, const vxArray* data) const;
  /// The names of all events, inherited ones first.
  const std::vector<COSNameID>& events() const noexcept { return events_; }

  /// A new object with every property at its default.
  COSInterfacePtr createObject() const;
  /// Marks an object of createObject as destroyed and destroys its values. One that is destroyed
  /// already, and an object that no class has made, stays as it is.
  static void destroyObject(const COSInterfacePtr& object) noexcept;

 private:
  COSInterface& ownProperty(COSNameID name) const;
  Event& requireEvent(COSNameID name) const;
  void requireNoDerivedClass() const;

  COSNameID name_;
  const COSClass* base_;
  COSInterfacePtr description_;  ///< the source of the class's own events
  mutable bool isBase_ = false;
  std::vector<COSInterfacePtr> properties_;
  std::unordered_map<COSNameID, COSInterface*> propertiesByName_;
  std::vector<COSNameID> events_;
  std::unordered_map<COSNameID, std::shared_ptr<Event>> eventsByName_;
};

}  // namespace vcos
