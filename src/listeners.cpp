#include "NewArray.h"

#include <graphics/datatype/CallbackDataType.h>
#include <graphics/datatype/CallbackExecutor.h>
#include <graphics/datatype/listeners.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <memory>
#include <string>
#include <utility>

namespace graphics::datatype {
namespace {

using vcos::COSEventData;
using vcos::COSInterfacePtr;
using vcos::COSPropInfoPtr;

constexpr int kPriority = 100;

class CallbackListenerOp : public vcos::COSListenerOp {
 public:
  CallbackListenerOp(const char* name, bool isAware, bool sendsData)
      : callbackName(name),
        interruptibleAware(isAware),
        sendEventData(sendsData),
        nameID_(name) {}

  void handleEvent(COSEventData* event) override {
    if (!event) return;
    COSInterfacePtr source = getSourceObject(event);
    if (!source) return;
    COSPropInfoPtr found(source->findProperty(nameID_));
    const vcos::COSPropInfo* const property = found.getObject();
    if (!property || property->getDataType().getObject() != CallbackDataType::getType()) return;
    if (property->getValue(source.get()).isNull()) return;
    if (sendEventData) {
      const auto giveBack = [event](const vxArray* array) { event->releaseArray(array); };
      const std::unique_ptr<const vxArray, decltype(giveBack)> data(event->getArray(), giveBack);
      process(std::move(source), std::move(found), data.get());
    } else {
      const ArrayPtr data(vxCreateDoubleMatrix(0, 0, vxREAL));
      process(std::move(source), std::move(found), data.get());
    }
  }

  virtual COSInterfacePtr getSourceObject(COSEventData* event) { return event->getSource(); }

 private:
  void process(COSInterfacePtr source, COSPropInfoPtr property, const vxArray* data) const {
    CallbackExecutor::getInstance()->processCallback(
        boost::make_shared<CallbackItem>(std::move(source), std::move(property), data),
        interruptibleAware);
  }

  std::string callbackName;
  bool interruptibleAware;
  bool sendEventData;
  vcos::COSNameID nameID_;  ///< callbackName, looked up once
};

class ClassCallbackListenerOp final : public CallbackListenerOp {
 public:
  using CallbackListenerOp::CallbackListenerOp;

  COSInterfacePtr getSourceObject(COSEventData* event) override {
    const auto* const instance = dynamic_cast<const vcos::COSClassInstanceEventData*>(event);
    return instance ? instance->getInstance() : COSInterfacePtr();
  }
};

vcos::COSListener* listenerOf(std::unique_ptr<vcos::COSListenerOp> operation) {
  vcos::COSListener* const listener = vcos::COSListener::createListener(operation.release());
  listener->setPriority(kPriority);
  return listener;
}

}  // namespace

vcos::COSListener* createListener(const char* callbackName, bool interruptibleAware) {
  return listenerOf(std::make_unique<CallbackListenerOp>(callbackName, interruptibleAware, true));
}

vcos::COSListener* createClassListener(const char* callbackName, bool interruptibleAware,
                                       bool sendEventData) {
  return listenerOf(
      std::make_unique<ClassCallbackListenerOp>(callbackName, interruptibleAware, sendEventData));
}

}  // namespace graphics::datatype
