#pragma once

#include <vcos/COSInterface.h>

namespace vcos {

/// An object that ends with its last reference. As it stands it has no class and no properties.
class CountedObject : public COSInterface {
 public:
  bool isDestroyed() const override { return false; }
  COSClass* getClass() const override { return nullptr; }
  COSInterfacePtr findProperty(COSNameID) const override { return {}; }
  void addRef() noexcept final { ++references_; }
  void release() noexcept final {
    if (--references_ == 0) delete this;
  }

 private:
  std::size_t references_ = 0;
};

}  // namespace vcos
