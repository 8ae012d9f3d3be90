#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>

#include <cstddef>
#include <vector>

namespace vcos {

/// Several objects that stand together as one, of the class "vortil.Composite". It has no
/// properties and is never destroyed before its last reference goes.
[[nodiscard]] VGHOST_API COSInterfacePtr createComposite(std::vector<COSInterfacePtr> elements);

/// What a COSIterator walks, and in which direction.
inline constexpr int kIterateElements = 3;
inline constexpr int kIterateForward = 0;

/// Walks the elements of a composite; a plain object is its own one element.
class VGHOST_API COSIterator {
 public:
  /// A COSException for another kind or direction than the two above, and for null.
  COSIterator(COSInterface* object, int kind, int direction);

  bool hasMoreElements() const noexcept { return next_ < elements_.size(); }
  /// The next element; only while hasMoreElements().
  COSInterfacePtr nextElement() { return elements_[next_++]; }

 private:
  std::vector<COSInterfacePtr> elements_;
  std::size_t next_ = 0;
};

}  // namespace vcos
