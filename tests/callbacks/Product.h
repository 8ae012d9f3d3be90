#pragma once

#include "callbacks/World.h"
#include "references/Samples.h"

#include <graphics/datatype/CallbackExecutor.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <functional>

namespace test {

using graphics::datatype::CallbackExecutor;
using graphics::datatype::CallbackItem;

/// Takes the place of the one instance while it lives.
struct Executor : CallbackExecutor {
  Executor() { sInstancePtr = this; }
  void postProcessCallback(Status status) override {
    if (atEnd) atEnd(status);
    CallbackExecutor::postProcessCallback(status);
  }
  bool wasInterruptHandled() override {
    return isInterrupted || CallbackExecutor::wasInterruptHandled();
  }

  std::function<void(Status)> atEnd;
  bool isInterrupted = false;
};

/// The world as the library has it.
class Product final : public World, vghost::CallbackEvaluator, vghost::ReportCapture {
 public:
  explicit Product(std::vector<std::string> codes) : World(std::move(codes)) {
    executor_.atEnd = [this](int status) { tell(";", std::to_string(status)); };
    vghost::installCallbackEvaluator(this);
    makeObjects();
  }
  ~Product() override { vghost::installCallbackEvaluator(nullptr); }

 private:
  vghost::CallbackOutcome run(const vxArray* callback, const vxArray* source,
                              const vxArray* data) override {
    const auto number = std::ranges::find(made_, omGetArrayElement(source, 0)) - made_.begin();
    const char kind = !data ? 'n' : vxGetNumberOfElements(data) == 0 ? 'z' : 'd';
    return World::run(static_cast<std::size_t>(number), vxArrayToStdString(callback), kind);
  }
  void keep(vghost::ErrorReport report) override {
    tell("<", report.identifier, " ", report.message, ">");
  }

  void fire(char event, std::size_t object) override {
    static const ArrayOwner kData = scalar(1);
    const COSInterfacePtr source = objects_[object];
    const COSNameID name(event == 'p' ? "Press" : event == 'n' ? "Notify" : "Urgent");
    source->getClass()->fireEvent(name, source, event == 'u' ? nullptr : kData.get());
  }
  void change(char act, std::size_t object, const std::string* code) override {
    COSInterfacePtr& place = objects_[object];
    const auto set = [source = place](const char* name, const char* text) {
      const vcos::COSPropInfoPtr found(source->findProperty(COSNameID(name)));
      if (auto* const property = found.getObject())
        text ? property->setFromText(source.get(), text) : property->setValue(source.get(), {});
    };
    if (act == 'r') made_.push_back(place = sampleObject(kClasses[object]));
    if (act == 'x') vcos::COSClass::destroyObject(place);
    if (act == 'i' || act == 'I') set("Interruptible", act == 'i' ? "off" : "on");
    if (act == 'b' || act == 'B') set("BusyAction", act == 'b' ? "cancel" : "queue");
    if (act == 'c')
      for (const char* name : {"OnPress", "OnNotify", "OnUrgent"})
        set(name, code ? code->c_str() : nullptr);
  }

  void tellRest() override {
    if (executor_.isInCallback()) tell(" running");
    tellReferences(vghost::callbackReferences() - references_);
    std::vector<CallbackExecutor::ItemPtr> waiting;
    while (const auto item = executor_.dequeue())
      waiting.push_back(item);
    for (const auto& item : waiting) {
      tell(" ", item->getClassName(), ".", item->getCallbackName());
      executor_.enqueue(item);
    }
  }

  std::size_t references_ = vghost::callbackReferences();
  std::vector<COSInterfacePtr> made_;
  std::array<COSInterfacePtr, 4> objects_;
  Executor executor_;
};

}  // namespace test
