#pragma once

#include "../ut/SharedCount.h"
#include "ObjectWatch.h"

#include <vcos/COSInterface.h>

#include <typeinfo>

namespace vcos {

/// As dynamic_cast, which takes longer, for a class that none derives from.
template <class Derived>
Derived* exactCast(COSInterface* object) noexcept {
  return object && typeid(*object) == typeid(Derived) ? static_cast<Derived*>(object) : nullptr;
}

/// An object that is destroyed with its last reference; threads may share it. As it stands it has
/// no class and no properties.
class CountedObject : public COSInterface {
 public:
  bool isDestroyed() const override { return false; }
  COSClass* getClass() const override { return nullptr; }
  COSInterfacePtr findProperty(COSNameID) const override { return {}; }
  void addRef() noexcept final { references_.add(1); }
  void release() noexcept final {
    if (references_.subtract(1) == 0) lastReferenceGone();
  }

  void addWatch(ObjectWatch& watch) noexcept final { watches_.push_back(watch); }

 private:
  /// Tells those who watch, and deletes the object behind the one that is being deleted now: it may
  /// hold the last reference to another, and that one to a third, and a chain of any length must
  /// not take a stack of that depth.
  void lastReferenceGone() noexcept;

  vghost::SharedCount references_;
  ObjectWatches watches_;
  CountedObject* nextToDelete_ = nullptr;
};

}  // namespace vcos
