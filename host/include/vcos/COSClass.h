#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/COSValue.h>
#include <vcos/TypeAccess.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace vcos {

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

/// A class of objects: a dotted name, a base class, and properties with their types. Classes live
/// as long as the process.
class VGHOST_API COSClass {
 public:
  /// `base` may be null; the properties that it has by now are inherited.
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

  /// A new object with every property at its default.
  COSInterfacePtr createObject() const;
  /// Marks an object of createObject as destroyed and destroys its values. One that is destroyed
  /// already, and an object that no class has made, stays as it is.
  static void destroyObject(const COSInterfacePtr& object) noexcept;

 private:
  COSInterface& ownProperty(COSNameID name) const;

  COSNameID name_;
  const COSClass* base_;
  mutable bool isBase_ = false;
  std::vector<COSInterfacePtr> properties_;
  std::unordered_map<COSNameID, COSInterface*> propertiesByName_;
};

}  // namespace vcos
