#pragma once

#include <vcos/COSClass.h>
#include <vcos/COSListener.h>

#include <memory>
#include <vector>

namespace vcos {

/// An event of a class, and those who listen to it.
class Event {
 public:
  explicit Event(COSEventKind kind) noexcept : kind_(kind) {}

  void add(std::unique_ptr<COSListener> listener);
  /// Tells those who listen by now.
  void fire(const COSInterfacePtr& ownClass, const COSInterfacePtr& object, const vxArray* data);

 private:
  COSEventKind kind_;
  std::vector<std::unique_ptr<COSListener>> listeners_;
};

}  // namespace vcos
