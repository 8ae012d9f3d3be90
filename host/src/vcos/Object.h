#pragma once

#include "CountedObject.h"

#include <vcos/COSClass.h>

#include <cstddef>
#include <vector>

namespace vcos {

/// A word, and whether it is the object's own: otherwise it is the default of the property.
struct HeldWord {
  COSValue word;
  bool isOwn = false;
};

/// An object of a class.
class Object final : public CountedObject {
 public:
  explicit Object(const COSClass& ownClass) : class_(ownClass) {}
  ~Object() override { destroyValues(); }

  bool isDestroyed() const override { return isDestroyed_; }
  COSClass* getClass() const override { return const_cast<COSClass*>(&class_); }
  COSInterfacePtr findProperty(COSNameID name) const override {
    return isDestroyed_ ? COSInterfacePtr() : class_.findProperty(name);
  }

  /// By the place of the property in the class. The object is not destroyed.
  HeldWord held(std::size_t place) const noexcept {
    return place < values_.size() ? values_[place] : HeldWord();
  }
  /// Makes room, so that replace() does not fail.
  void reserve(std::size_t place) {
    if (place >= values_.size()) values_.resize(place + 1);
  }
  HeldWord replace(std::size_t place, HeldWord word) noexcept;

  void destroyValues() noexcept;

 private:
  const COSClass& class_;
  std::vector<HeldWord> values_;  ///< as far as any property has been set
  bool isDestroyed_ = false;
};

}  // namespace vcos
