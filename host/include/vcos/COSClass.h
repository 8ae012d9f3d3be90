#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/COSValue.h>

#include <string>
#include <vector>

namespace vcos {

/// One property of a class: its name, its type, and its value on an object.
class VGHOST_API COSPropInfo {
 public:
  virtual ~COSPropInfo();
  virtual const char* getName() const = 0;
  virtual COSDataTypePtr getDataType() const = 0;
  /// The word as it is held: it stays the object's, and is null if the type's values have 0 bytes.
  /// A COSException if the object is destroyed or has no such property.
  virtual COSValue getValue(const COSInterface* object) const = 0;
  /// Copies the word in, by copyValue(), and then destroys the old one. A failing copy leaves the
  /// old value in place. A COSException if the object is destroyed or has no such property.
  virtual void setValue(COSInterface* object, COSValue value) = 0;
};

struct VGHOST_API COSPropInfoPtrHelper {
  /// Null for a null pointer and for an object that stands for no property.
  COSPropInfo* getObject(const COSInterfacePtr& property) const noexcept;
};
using COSPropInfoPtr = COSSpecializedInterfacePtr<COSPropInfo*, COSPropInfoPtrHelper>;

/// A class of objects: a name, a base class, and properties with their types. Classes live as long
/// as the process; properties are added before the first object is made.
class VGHOST_API COSClass {
 public:
  /// `base` may be null; its properties are inherited.
  COSClass(const char* name, const COSClass* base);
  virtual ~COSClass();
  COSClass(const COSClass&) = delete;
  COSClass& operator=(const COSClass&) = delete;

  virtual const char* getName() const noexcept;
  virtual COSNameID getNameID() const noexcept;
  /// True when the class is the named one or derives from it.
  virtual bool isA(COSNameID name) const noexcept;

  /// Adds a property of a type that is registered by now; it starts with the type's default. A
  /// COSException if the type is unknown or the class has a property of that name.
  void addProperty(const char* name, COSNameID type);
  /// The property of that name, own or inherited; null if there is none.
  COSInterfacePtr findProperty(COSNameID name) const;
  /// All properties, inherited ones first.
  const std::vector<COSInterfacePtr>& properties() const noexcept { return properties_; }

  /// A new object with every property at its default.
  COSInterfacePtr createObject() const;
  /// Marks an object of createObject as destroyed and destroys its values.
  static void destroyObject(const COSInterfacePtr& object) noexcept;

 private:
  COSNameID name_;
  const COSClass* base_;
  std::vector<COSInterfacePtr> properties_;
};

}  // namespace vcos
