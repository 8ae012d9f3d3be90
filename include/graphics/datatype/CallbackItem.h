#pragma once

#include <graphics/datatype/export.h>
#include <gui_objects/AutoPtr.h>
#include <vcos/COSClass.h>
#include <vcos/COSInterface.h>

namespace graphics::datatype {

/// One firing of one callback, for the CallbackExecutor. What it refers to may be destroyed before
/// it runs.
class VGDT_API CallbackItem {
 public:
  /// `property` is of the type "Callback", and `source` has it. The event data stays the caller's,
  /// and the item keeps a shared copy; null is no data.
  CallbackItem(vcos::COSInterfacePtr source, vcos::COSPropInfoPtr property,
               const vxArray* eventData);
  virtual ~CallbackItem();
  CallbackItem(const CallbackItem&) = delete;
  CallbackItem& operator=(const CallbackItem&) = delete;

  /// The name of the object's class, or "DestroyedObject" for one that is destroyed and for none.
  virtual const char* getClassName();
  /// The name of the property.
  virtual const char* getCallbackName();
  /// Runs the callback that the property holds now, if any, on the object, if it lives. True if the
  /// callback failed.
  virtual bool execute();
  /// Whether the item waits if it may not run at once: the object's "BusyAction" is "queue". The
  /// item has an object; false if that has no property of that name and type, or it is null.
  virtual bool canQueue();
  /// Whether others may run while the item runs: the object's "Interruptible" is not zero. The item
  /// has an object; true if that has no such property.
  virtual bool isInterruptible();

  /// Whether the failure of the last execute() was an exception that the host has saved.
  bool wasExceptionCaught() const noexcept { return exceptionCaught; }

 private:
  vcos::COSInterfacePtr sourceObject;
  vcos::COSPropInfoPtr callbackProperty;
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> eventData;
  bool exceptionCaught = false;
};

}  // namespace graphics::datatype
