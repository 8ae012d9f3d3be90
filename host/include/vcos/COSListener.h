#pragma once

#include <ut/export.h>
#include <vcos/COSInterface.h>
#include <vx/array.h>

#include <memory>

namespace vcos {

/// What those who listen to an event are told of it.
class VGHOST_API COSEventData {
 public:
  virtual ~COSEventData();
  /// The object that the event happened to; null if there is none.
  virtual COSInterfacePtr getSource() const = 0;
  /// The data of the event, which the listener gives back with releaseArray(); null if there is
  /// none.
  virtual const vxArray* getArray() = 0;
  virtual void releaseArray(const vxArray* array) noexcept = 0;
};

/// Of an event of a class: its source is the class, and it speaks of one of the class's objects.
class VGHOST_API COSClassInstanceEventData : public COSEventData {
 public:
  virtual COSInterfacePtr getInstance() const = 0;
};

/// What a listener does.
class VGHOST_API COSListenerOp {
 public:
  virtual ~COSListenerOp();
  /// What it throws goes to whoever fired the event; further listeners are not told.
  virtual void handleEvent(COSEventData* event) = 0;
};

/// A listener: an operation and a priority, 0 at first.
class VGHOST_API COSListener {
 public:
  /// Takes the operation over, also if this fails. The listener is the caller's.
  [[nodiscard]] static COSListener* createListener(COSListenerOp* operation);

  /// An event tells listeners of higher priority first, and those of one priority in the order in
  /// which they were added to it.
  void setPriority(int priority) noexcept { priority_ = priority; }
  int getPriority() const noexcept { return priority_; }

  void handleEvent(COSEventData* event) const { operation_->handleEvent(event); }

 private:
  explicit COSListener(std::unique_ptr<COSListenerOp> operation) noexcept;

  std::unique_ptr<COSListenerOp> operation_;
  int priority_ = 0;
};

}  // namespace vcos
