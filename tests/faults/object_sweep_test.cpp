// What objects do meets each of its allocations and host calls failing, once and from then on.

#include "faults/Obstacles.h"
#include "references/Samples.h"
#include "support/ChildProcess.h"

#include <callback/VCallback.h>
#include <graphics/datatype/CallbackExecutor.h>
#include <sv/features.h>
#include <ut/console.h>

#include <functional>
#include <string>
#include <utility>

namespace {

using namespace test;
using graphics::datatype::vcos_destroy_handle;

using Set = std::function<void(vcos::COSPropInfo&, COSInterface*)>;

void sweepSet(const char* className, const char* name, const Set& set) {
  SCOPED_TRACE(std::string(className) + "." + name);
  vcos::COSPropInfo& property = propertyOf(sampleObject(className), name);
  const vcos::COSDataType& type = property.getTypeAccess().dataType();
  const COSInterfacePtr untouched = sampleObject(className);
  const COSInterfacePtr changed = sampleObject(className);
  set(property, changed.get());
  const auto areEqual = [&](const COSInterfacePtr& a, const COSInterfacePtr& b) {
    return type.isEqual(property.getValue(a.get()), property.getValue(b.get()));
  };
  EXPECT_FALSE(areEqual(changed, untouched));
  const auto met = sweep([&](const auto& meet) {
    const COSInterfacePtr object = sampleObject(className);
    const Outcome outcome = meet([&] { set(property, object.get()); });
    EXPECT_TRUE(areEqual(object, outcome == Outcome::kSucceeded ? changed : untouched));
    set(property, object.get());
    EXPECT_TRUE(areEqual(object, changed));
  });
  EXPECT_GT(met, 5U);
}

TEST(ObjectSweep, AFailingSetLeavesTheOldValue) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const auto text = [](const char* given) -> Set {
      return [given](auto& property, auto* object) { property.setFromText(object, given); };
    };
    const auto array = [](const ArrayOwner& given) -> Set {
      return [&given](auto& property, auto* object) { property.setFromArray(object, given.get()); };
    };
    const COSInterfacePtr line = sampleObject("Line");
    const ArrayOwner number = scalar(numberOf(line));
    const ArrayOwner reference(omCreateVCOSScalar(line));
    const ArrayOwner lines = test::array("1x3 char", {'a', '\n', 'b'});
    const std::tuple<const char*, const char*, Set> rows[] = {
        {"LinePrimitive", "Color", text("red")},
        {"LinePrimitive", "LineStyle", text("--")},
        {"MarkerPrimitive", "Style", text("^")},
        {"TextPrimitive", "Color", text("[0.5 1 0]")},
        {"TextPrimitive", "String", text("two")},
        {"TextPrimitive", "String", array(lines)},
        {"Figure", "Tag", text("a tag")},
        {"Figure", "CurrentObject", array(number)},
        {"Figure", "CurrentObject", array(reference)},
        {"Figure", "Peer", array(lines)},
        {"Axes", "YLimits", text("[2 5]")},
        {"Root", "FigureInFront", array(number)},
        {"Root", "FigureInFront", array(reference)},
    };
    for (const auto& [className, name, set] : rows)
      sweepSet(className, name, set);
    vcos_destroy_handle(vxGetScalar(number.get()));
  });
}

TEST(ObjectSweep, ObjectsAndNumbersAreMadeOrNot) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    graphics::datatype::test::enableDoubleHandleTracking(true);
    for (const char* className : {"Figure", "Line"}) {
      const COSInterfacePtr object = sampleObject(className);
      const auto met = sweep([&](const auto& meet) {
        COSInterfacePtr made;
        double number = -1;
        const Outcome outcome = meet([&] {
          number = numberOf(object);
          objectOf(number);
          made = sampleObject(className);
        });
        EXPECT_EQ(made.get() != nullptr, outcome == Outcome::kSucceeded);
        EXPECT_EQ(objectOf(number), number == -1 ? nullptr : object.get());
        EXPECT_LT(number, 2) << "the first number is free again after a failure";
        vcos_destroy_handle(number);
      });
      EXPECT_GT(met, 2U);
    }
  });
}

/// The first callback puts three in the queue, of which one fails.
struct Queueing final : vghost::CallbackEvaluator {
  vghost::CallbackOutcome run(const vxArray*, const vxArray*, const vxArray*) override {
    if (runs++ == 0)
      for (int i = 0; i < 3; ++i)
        object->getClass()->fireEvent(COSNameID("Press"), object, data.get());
    return {.hasFailed = runs == 2};
  }

  COSInterfacePtr object;
  ArrayOwner data = scalar(1);
  int runs = 0;
};

TEST(ObjectSweep, AFailingCallbackLeavesTheExecutorAtRest) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    auto& executor = *graphics::datatype::CallbackExecutor::getInstance();
    Queueing evaluator;
    vghost::installCallbackEvaluator(&evaluator);
    const vghost::ConsoleCapture console;
    const auto attempt = [&](const auto& meet) {
      evaluator.object = sampleObject("Line");
      for (const auto& [name, text] : {std::pair("OnPress", "code"), {"Interruptible", "off"}})
        propertyOf(evaluator.object, name).setFromText(evaluator.object.get(), text);
      const auto fire = [&] {
        evaluator.runs = 0;
        evaluator.object->getClass()->fireEvent(COSNameID("Press"), evaluator.object, nullptr);
      };
      const std::size_t references = vghost::callbackReferences();
      const Outcome outcome = meet(fire);
      EXPECT_EQ(outcome == Outcome::kSucceeded, evaluator.runs == 4);
      EXPECT_FALSE(executor.isInCallback());
      EXPECT_TRUE(outcome != Outcome::kSucceeded || vghost::callbackReferences() == references);
      svClearVGStatus(4);
      while (executor.dequeue()) {
      }
      fire();
      EXPECT_EQ(evaluator.runs, 4);
      evaluator.object = COSInterfacePtr();
    };
    attempt([](const auto& work) { return outcomeOf(work); });  // makes what is kept
    EXPECT_GT(sweep(attempt), 50U);
  });
}

}  // namespace
