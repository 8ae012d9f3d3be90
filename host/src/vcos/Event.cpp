#include "Event.h"

#include <ut/faults.h>

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <utility>

namespace vcos {

COSEventData::~COSEventData() = default;
COSListenerOp::~COSListenerOp() = default;

namespace {

/// `Base` with the data that the event was fired with.
template <class Base>
class FiredEvent : public Base {
 public:
  FiredEvent(const COSInterfacePtr& source, const vxArray* data) : source_(source), data_(data) {}

  COSInterfacePtr getSource() const final { return source_; }
  const vxArray* getArray() final { return data_; }
  void releaseArray(const vxArray*) noexcept final {}

 private:
  const COSInterfacePtr& source_;
  const vxArray* data_;
};

class FiredClassEvent final : public FiredEvent<COSClassInstanceEventData> {
 public:
  FiredClassEvent(const COSInterfacePtr& source, const vxArray* data, const COSInterfacePtr& object)
      : FiredEvent(source, data),
        object_(object) {}

  COSInterfacePtr getInstance() const override { return object_; }

 private:
  const COSInterfacePtr& object_;
};

}  // namespace

COSListener::COSListener(std::unique_ptr<COSListenerOp> operation) noexcept
    : operation_(std::move(operation)) {}

COSListener* COSListener::createListener(COSListenerOp* operation) {
  std::unique_ptr<COSListenerOp> owned(operation);
  vghost::faults::countHostCall("createListener");
  return new COSListener(std::move(owned));
}

void Event::add(std::unique_ptr<COSListener> listener) {
  const auto isBehind = [](int priority, const auto& other) {
    return priority > other->getPriority();
  };
  const auto place =
      std::upper_bound(listeners_.begin(), listeners_.end(), listener->getPriority(), isBehind);
  listeners_.insert(place, std::move(listener));
}

void Event::fire(const COSInterfacePtr& ownClass, const COSInterfacePtr& object,
                 const vxArray* data) {
  const auto tell = [this](COSEventData& event) {
    boost::container::small_vector<COSListener*, 8> listeners;  // a listener may add others
    for (const auto& each : listeners_)
      listeners.push_back(each.get());
    for (COSListener* const each : listeners)
      each->handleEvent(&event);
  };
  if (kind_ == COSEventKind::OfObject) {
    FiredEvent<COSEventData> event(object, data);
    tell(event);
  } else {
    FiredClassEvent event(ownClass, data, object);
    tell(event);
  }
}

}  // namespace vcos
