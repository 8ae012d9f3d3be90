#pragma once

#include "../ut/SharedCount.h"

#include <vcos/COSInterface.h>

namespace vcos {

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

 protected:
  virtual void lastReferenceGone() noexcept { delete this; }

 private:
  vghost::SharedCount references_;
};

}  // namespace vcos
