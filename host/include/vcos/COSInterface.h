#pragma once

#include <ut/export.h>
#include <vcos/COSNameID.h>

#include <utility>

namespace vcos {

class COSClass;
class COSInterfacePtr;
class ObjectWatch;

/// A counted object of the class system.
class VGHOST_API COSInterface {
 public:
  virtual ~COSInterface();
  /// True when the object was destroyed while references to it remained.
  virtual bool isDestroyed() const = 0;
  /// The object's class; null for the class system's own descriptions of types and properties.
  virtual COSClass* getClass() const = 0;
  /// The property of that name as a COSPropInfoPtr; null if there is none.
  virtual COSInterfacePtr findProperty(COSNameID name) const = 0;
  virtual void addRef() noexcept = 0;
  virtual void release() noexcept = 0;

  /// For the host itself, whose objects tell `watch` when the last reference goes. Nothing for
  /// those of others.
  virtual void addWatch(ObjectWatch& watch) noexcept;
};

/// Holds one reference to an object, or none.
class VGHOST_API COSInterfacePtr {
 public:
  COSInterfacePtr() noexcept = default;
  explicit COSInterfacePtr(COSInterface* object) noexcept : object_(object) {
    if (object_) object_->addRef();
  }
  COSInterfacePtr(const COSInterfacePtr& other) noexcept : COSInterfacePtr(other.object_) {}
  COSInterfacePtr(COSInterfacePtr&& other) noexcept
      : object_(std::exchange(other.object_, nullptr)) {}
  COSInterfacePtr& operator=(COSInterfacePtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~COSInterfacePtr() {
    if (object_) object_->release();
  }

  COSInterface* get() const noexcept { return object_; }
  COSInterface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// The same object.
  friend bool operator==(const COSInterfacePtr& a, const COSInterfacePtr& b) noexcept {
    return a.object_ == b.object_;
  }

 private:
  COSInterface* object_ = nullptr;
};

/// A COSInterfacePtr whose object stands for a `Target` (such as a COSDataType*), which the helper
/// finds in it.
template <class Target, class Helper>
class COSSpecializedInterfacePtr : public COSInterfacePtr {
 public:
  COSSpecializedInterfacePtr() noexcept = default;
  explicit COSSpecializedInterfacePtr(COSInterfacePtr object) noexcept
      : COSInterfacePtr(std::move(object)) {}

  Target getObject() const { return Helper().getObject(*this); }
};

}  // namespace vcos
