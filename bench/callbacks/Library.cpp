// The library: a sample object with a callback, and an evaluator that does nothing but count. Each
// step of a firing is measured by itself as well.

#include "SampleClasses.h"
#include "contest.h"

#include <graphics/datatype/CallbackDataType.h>
#include <graphics/datatype/CallbackExecutor.h>
#include <graphics/datatype/CallbackItem.h>
#include <gui_objects/AutoPtr.h>
#include <sv/features.h>
#include <ut/interrupts.h>
#include <vcos/COSClass.h>
#include <vcos/COSListener.h>
#include <vx/objects.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <utility>

namespace callbacks {
namespace {

using graphics::datatype::CallbackDataType;
using graphics::datatype::CallbackExecutor;
using graphics::datatype::CallbackItem;
using measuring::Goal;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vcos::COSPropInfoPtr;
using ArrayPtr = gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>;

COSPropInfoPtr find(const COSInterfacePtr& object, const char* name) {
  return COSPropInfoPtr(object->findProperty(COSNameID(name)));
}

/// A line whose callback is run by "Press", with the given "Interruptible".
struct Line {
  explicit Line(const char* interruptible) {
    find(object, "OnPress").getObject()->setFromText(object.get(), "redraw");
    find(object, "Interruptible").getObject()->setFromText(object.get(), interruptible);
  }

  void press() const { lines.fireEvent(pressed, object, data.get()); }

  const vcos::COSClass& lines = *sample::findClass("Line");
  COSNameID pressed{kPress};
  COSInterfacePtr object = lines.createObject();
  ArrayPtr data{vxCreateDoubleScalar(7)};
};

const Line& line() {
  static const Line made("on");
  return made;
}
const Line& busyLine() {
  static const Line made("off");
  return made;
}

class Evaluator final : public vghost::CallbackEvaluator {
 public:
  vghost::CallbackOutcome run(const vxArray*, const vxArray*, const vxArray*) override {
    ++runs;
    for (std::size_t left = std::exchange(toFire, 0); left > 0; --left)
      line().press();
    return {};
  }

  std::uint64_t runs = 0;
  std::size_t toFire = 0;  ///< by the next callback
};

Evaluator& evaluator() {
  static Evaluator made;
  return made;
}

/// All of them are queued, since the line that fires them is busy.
void queueAndServe(std::size_t count) {
  evaluator().toFire = count;
  busyLine().press();
}

/// Adds the measurement of a step, and the share that it has of a firing.
template <class Step>
void addStep(const std::string& step, Step run) {
  const std::string name = "step/" + step;
  measuring::measure(name, run);
  measuring::compareTimes({name, "fire", name, std::string("fire/") + kOurs, Goal::kNone});
}

class SourceListener final : public vcos::COSListenerOp {
 public:
  void handleEvent(vcos::COSEventData* event) override {
    benchmark::DoNotOptimize(event->getSource());
  }
};

/// A class with an event that nobody listens to but for its source.
const vcos::COSClass& heard() {
  static const auto& made = *[] {
    auto* const added = new vcos::COSClass("bench.Heard", nullptr);
    added->addEvent(COSNameID(kPress), vcos::COSEventKind::OfObject);
    added->addListener(COSNameID(kPress), vcos::COSListener::createListener(new SourceListener));
    return added;
  }();
  return made;
}

void addSteps() {
  static const COSPropInfoPtr property = find(line().object, "OnPress");
  static const COSNameID onPress("OnPress");
  static CallbackItem item(line().object, property, line().data.get());
  static const vcos::COSValue callback = property.getObject()->getValue(line().object.get());

  addStep("event, listener and source", [] {
    heard().fireEvent(line().pressed, line().object, line().data.get());
    return 0;
  });
  addStep("property, its type and value", [] {
    const COSPropInfoPtr found(line().object->findProperty(onPress));
    const vcos::COSPropInfo* const info = found.getObject();
    if (info->getDataType().getObject() != CallbackDataType::getType()) measuring::fail("no type");
    return info->getValue(line().object.get());
  });
  addStep("item", [] {
    return boost::make_shared<CallbackItem>(line().object, property, line().data.get());
  });
  addStep("item: copy of the data",
          [] { return ArrayPtr(vxCreateSharedCopyNotOnArrayList(line().data.get())); });
  addStep("Interruptible", [] { return item.isInterruptible(); });
  addStep("interrupts and status", [] {
    bool isQuiet = !utIsInterruptPending();
    utSetInterruptHandled(0);
    const int before = svGetVGStatus();
    svSetVGStatus(4);
    const int after = svGetVGStatus();
    svClearVGStatus(before == after ? 0 : 4);
    auto& executor = *CallbackExecutor::getInstance();
    isQuiet = isQuiet && !executor.wasInterruptHandled() && !inIsDbquitSet();
    return isQuiet && !executor.wasInterruptHandled();
  });
  addStep("execute", [] { return item.execute(); });
  addStep("execute: array of the source",
          [] { return ArrayPtr(omCreateVCOSScalar(line().object)); });
  addStep("execute: reference", [] {
    DestroyVCallback(GetVCallbackReference(callback.asPointer<VCallback>()));
    return 0;
  });
  addStep("execute: evaluator",
          [] { return callback.asPointer<VCallback>()->execute(nullptr, line().data.get()); });
}

}  // namespace

void addLibrary() {
  vghost::installCallbackEvaluator(&evaluator());
  addFiring(std::string("fire/") + kOurs, evaluator().runs, [] { line().press(); });
  addFiring(std::string("fireByName/") + kOurs, evaluator().runs,
            [] { line().lines.fireEvent(COSNameID(kPress), line().object, line().data.get()); });
  addSteps();
  static std::uint64_t served = 0;
  addQueue(kOurs, served, [](std::size_t count) {
    const std::uint64_t before = evaluator().runs;
    queueAndServe(count);
    served += evaluator().runs - before - 1;
  });
  for (std::size_t i = 1; i < std::size(kSizes); ++i)
    for (std::size_t j = 0; j < i; ++j) {
      const std::string work = std::string("queue/") + kSizes[i].text;
      measuring::compareTimes({work, kSizes[j].text, work + "/" + kOurs,
                               std::string("queue/") + kSizes[j].text + "/" + kOurs,
                               Goal::atMost(1.3)});
    }
}

}  // namespace callbacks
