#pragma once

#include <callback/WaitForObserver.h>
#include <callback/inExecutionStatus.h>
#include <graphics/datatype/CallbackItem.h>

#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <deque>
#include <queue>

namespace graphics::datatype {

/// Decides of each firing of a callback whether it runs now, later or never, and runs it.
///
/// A newcomer runs on top of what is running if that is interruptible. Otherwise it waits in a
/// queue, or is dropped without a word, as the "BusyAction" of its object says. The queue is served
/// first in, first out, when the outermost callback has ended. While the host waits for something,
/// what is running counts as interruptible.
///
///     const auto item = boost::make_shared<CallbackItem>(object, property, eventData);
///     CallbackExecutor::getInstance()->processCallback(item, true);
///
/// A callback that fails is reported through Lindgrove::VException::PrintErrorMessage, and the
/// firing goes on. After an interrupt the queue is emptied, and a Lindgrove::System exception
/// leaves the nested callbacks: an InterruptException, or a DebugQuitException when the debugger's
/// quit is in progress, which leaves the queue as it is. No exception leaves the outermost level
/// when the interrupt or the quit came up there. What the host throws out of a callback passes
/// through.
///
/// One thread: that of the host's interpreter. Any operation may be called while a callback runs.
class VGDT_API CallbackExecutor : public WaitForObserver {
 public:
  using Status = vlutil::cmddistributor::inExecutionStatus;
  using ItemPtr = boost::shared_ptr<CallbackItem>;

  /// The one instance, made at the first call and destroyed when the process ends.
  static CallbackExecutor* getInstance();
  /// The same; null before the first call and once it is destroyed.
  static CallbackExecutor* sInstancePtr;

  ~CallbackExecutor() override;

  /// A wait makes what is running interruptible; when it is over, the state before it returns.
  void waitForStarted() override;
  /// Nothing if no wait has begun.
  void waitForFinished() override;
  /// Goes on behind a callback: serves the queue at the outermost level, or leaves nested callbacks
  /// with one of the exceptions.
  virtual void postProcessCallback(Status status);
  virtual bool wasInterruptHandled();

  /// Takes a firing. The item's object lives. One that is not aware of interruptibility runs at
  /// once whatever is running. True if it ran, false if it was put off or dropped.
  bool processCallback(ItemPtr item, bool interruptibleAware);
  /// Runs an item, other than while an interrupt is pending, and reports how it ended.
  Status callEventCallback(ItemPtr item);
  /// Reports a failure, if `print`. Kept: for inEXECUTION_DBQUIT the host's error mode stays at
  /// vxERROR_MODE_REPORT. A status that is no failure is the warning "VORTIL:vg:CALLBACK".
  void handleError(ItemPtr item, bool print, Status status);

  void enqueue(ItemPtr item);
  /// The item that waits longest; null if none does.
  ItemPtr dequeue();

  /// Whether a callback is running.
  bool isInCallback() const noexcept { return callbackDepth > 0; }

 protected:
  CallbackExecutor();

 private:
  struct InterruptibleOverride;

  void serveQueue();

  bool currentInterruptible = true;
  std::queue<ItemPtr> pendingCallbacks;
  std::int32_t callbackDepth = 0;
  std::deque<boost::shared_ptr<InterruptibleOverride>> interruptibleOverrides;
  bool isServing_ = false;   ///< the present callback was taken from the queue
  bool servesNext_ = false;  ///< and the next one may be
};

}  // namespace graphics::datatype
