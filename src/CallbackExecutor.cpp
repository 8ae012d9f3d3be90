#include <graphics/datatype/CallbackExecutor.h>
#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <sv/features.h>
#include <ut/interrupts.h>
#include <vx/errors.h>

#include <algorithm>
#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <string_view>
#include <utility>

namespace graphics::datatype {

using namespace vlutil::cmddistributor;

namespace {

/// The bit of the graphics status word that is set while callbacks run.
constexpr int kInCallback = 4;

/// Sets a variable until the end of a scope.
template <class T>
class Setting {
 public:
  Setting(T& variable, T value) : variable_(variable), before_(std::exchange(variable, value)) {}
  ~Setting() { variable_ = before_; }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  T& variable_;
  T before_;
};

class ErrorModeRestorer {
 public:
  explicit ErrorModeRestorer(vxErrorMode mode) : mode_(mode) {}
  ~ErrorModeRestorer() { vxSetErrorMode(mode_); }
  ErrorModeRestorer(const ErrorModeRestorer&) = delete;
  ErrorModeRestorer& operator=(const ErrorModeRestorer&) = delete;

 private:
  vxErrorMode mode_;
};

}  // namespace

/// A wait in progress.
struct CallbackExecutor::InterruptibleOverride {
  explicit InterruptibleOverride(CallbackExecutor& owner)
      : executor(&owner),
        savedInterruptible(owner.currentInterruptible) {}
  ~InterruptibleOverride() { executor->currentInterruptible = savedInterruptible; }
  InterruptibleOverride(const InterruptibleOverride&) = delete;
  InterruptibleOverride& operator=(const InterruptibleOverride&) = delete;

  CallbackExecutor* executor;
  bool savedInterruptible;
};

CallbackExecutor* CallbackExecutor::sInstancePtr = nullptr;

CallbackExecutor::CallbackExecutor() = default;

CallbackExecutor* CallbackExecutor::getInstance() {
  if (sInstancePtr) return sInstancePtr;
  static CallbackExecutor instance;
  sInstancePtr = &instance;
  return sInstancePtr;
}

CallbackExecutor::~CallbackExecutor() {
  sInstancePtr = nullptr;
  interruptibleOverrides.clear();
}

void CallbackExecutor::waitForStarted() {
  const auto started = boost::make_shared<InterruptibleOverride>(*this);
  currentInterruptible = true;
  interruptibleOverrides.push_back(started);
}

void CallbackExecutor::waitForFinished() {
  if (!interruptibleOverrides.empty()) interruptibleOverrides.pop_back();
}

bool CallbackExecutor::wasInterruptHandled() {
  return utWasInterruptHandled();
}

void CallbackExecutor::enqueue(ItemPtr item) {
  pendingCallbacks.push(std::move(item));
}

CallbackExecutor::ItemPtr CallbackExecutor::dequeue() {
  if (pendingCallbacks.empty()) return {};
  ItemPtr item = std::move(pendingCallbacks.front());
  pendingCallbacks.pop();
  return item;
}

bool CallbackExecutor::processCallback(ItemPtr item, bool interruptibleAware) {
  if (interruptibleAware && !currentInterruptible) {
    if (item->canQueue()) enqueue(std::move(item));
    return false;
  }
  const Status status = callEventCallback(std::move(item));
  postProcessCallback(status);
  return true;
}

CallbackExecutor::Status CallbackExecutor::callEventCallback(ItemPtr item) {
  // What is fired from here on is not what the queue was asked for.
  const Setting notServing(isServing_, false);
  Status status = inEXECUTION_CLEAN;
  bool print = false;
  if (!utIsInterruptPending()) {
    utSetInterruptHandled(0);
    const Setting interruptible(currentInterruptible, currentInterruptible);
    const Setting depth(callbackDepth, callbackDepth + 1);
    currentInterruptible = item->isInterruptible();
    const int before = svGetVGStatus();
    svSetVGStatus(kInCallback);
    const int mask = before != svGetVGStatus() ? kInCallback : 0;
    if (item->execute()) {
      status = inEXECUTION_RUNTIME_ERROR;
      print = !item->wasExceptionCaught();
    }
    svClearVGStatus(mask);  // kept: an exception leaves the bit set
  }
  if (wasInterruptHandled()) {
    while (!pendingCallbacks.empty())
      pendingCallbacks.pop();
    status = inEXECUTION_INTERRUPTED;
  } else if (inIsDbquitSet()) {
    status = inEXECUTION_DBQUIT;
  } else if (status == inEXECUTION_CLEAN) {
    return status;
  }
  handleError(std::move(item), print, status);
  return status;
}

void CallbackExecutor::postProcessCallback(Status status) {
  if (!wasInterruptHandled() && status != inEXECUTION_DBQUIT) {
    if (callbackDepth == 0) serveQueue();
    return;
  }
  if (callbackDepth <= 0) return;
  if (wasInterruptHandled()) throw Lindgrove::System::InterruptException(false);
  if (status == inEXECUTION_DBQUIT) throw Lindgrove::System::DebugQuitException();
}

/// The end of each callback asks for the next one. Behind one that was taken from the queue that is
/// only noted, so that a queue of any length takes no more stack than one callback.
void CallbackExecutor::serveQueue() {
  servesNext_ = true;
  if (isServing_) return;
  const Setting serving(isServing_, true);
  while (std::exchange(servesNext_, false))
    if (ItemPtr item = dequeue()) processCallback(std::move(item), true);
}

// The buffer must not take room on the stack of nested callbacks.
// NOLINTNEXTLINE(performance-unnecessary-value-param): callers rely on the signature.
[[gnu::noinline]] void CallbackExecutor::handleError(ItemPtr item, bool print, Status status) {
  const vxErrorMode saved = vxSetErrorMode(vxERROR_MODE_REPORT);
  if (status == inEXECUTION_DBQUIT) return;  // kept: the error mode stays as it is
  const ErrorModeRestorer restorer(saved);
  std::array<char, 8192> format{};
  const char* identifier = nullptr;
  const char* message = nullptr;
  std::string_view text;
  switch (status) {
    case inEXECUTION_RUNTIME_ERROR:
      vxGetLastErrIdAndMsg(&identifier, &message);
      text = "Error while evaluating %s %s";
      break;
    case inEXECUTION_SYNTAX_ERROR:
      text = "Syntax error in %s %s";
      break;
    case inEXECUTION_INTERRUPTED:
      text = "Interrupt while evaluating %s %s";
      break;
    default:
      vxSetErrorMode(saved);
      vxWarningMsgId(component_VORTIL::catalog_vg::key_CALLBACK());
      return;
  }
  char* const end = std::ranges::copy(text, format.begin()).out;
  if (!identifier) *end = '.';
  if (print)
    Lindgrove::VException::PrintErrorMessage(identifier ? identifier : "", format.data(),
                                             item->getClassName(), item->getCallbackName());
}

}  // namespace graphics::datatype
