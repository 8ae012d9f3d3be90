// What becomes of a firing.

#include "callbacks/Product.h"

#include <graphics/datatype/listeners.h>

#include <numeric>
#include <thread>

namespace {

using namespace test;
using namespace graphics::datatype;

using Callbacks = Samples;

/// The codes of the objects (empty ones for the rest), acts, and what they tell; with "|" between.
constexpr const char* kScenarios[][3] = {
    {"||", "i0 b0 p0|n0|u3", "0d[];0|0z[];0|3n[];0"},
    {"p1", "i1 p0", "0d[1d[];0];0"},
    {"p1 n2 p1 p3 u2", "i0 b0 p0", "0d[2n[];0];01d[];02z[];01d[];0"},
    // What runs is what the property holds by then, if the object lives.
    {"p1 c1c p2 x2||s", "i0 p0", "0d[];01d[];2;0"},
    {"x0 p0 e", "p0", "0d[]< Error while evaluating DestroyedObject OnPress.>;2"},
    {"f", "p0", "0d[]<id Error while evaluating vortil.graphics.Line OnPress>;2"},
    // Interrupts on the way and at entry, and quits.
    {"p1 u2?||^ !", "i0 p0|p1", "0d[2n[];4!InterruptException];4 mark|1d[];0"},
    {"f q ^ !", "p0", "0d[]< Interrupt while evaluating vortil.graphics.Line OnPress.>;4 mark"},
    {"p1 ^", "i0 p0|o p0", "0d[];0;0|0d[];0;0"},
    {"u1|p2 q", "i1 p0|Q u3",
     "0d[1n[];3!DebugQuitException!DebugQuitException bit mode references1"
     " vortil.graphics.Text.OnPress|3n[];02d[];0 bit mode references1"},
    // Waits, the last of which outlives its callback.
    {"w p1 W p2 w", "i0 p0|W p1|w u2", "0d[1d[];0];02d[];0| vortil.ui.Figure.OnPress|2n[];01d[];0"},
};

TEST_F(Callbacks, DoWhatTheScenarioTells) {
  for (const auto& [codes, steps, told] : kScenarios) {
    Product product(split(codes));
    EXPECT_EQ(product.play(split(steps)), split(told)) << codes;
  }
}

/// An item of the test's own.
struct Item : CallbackItem {
  explicit Item(std::function<void()> newWork)
      : CallbackItem({}, {}, nullptr),
        work(std::move(newWork)) {}
  const char* getCallbackName() override { return "Item"; }
  bool execute() override { return work(), false; }
  bool canQueue() override { return true; }
  bool isInterruptible() override { return isOpen; }

  bool isOpen = true;
  std::function<void()> work;
};

TEST_F(Callbacks, ReportByTheStatusAndOnlyIfAsked) {
  Executor executor;
  const auto item = boost::make_shared<Item>([] {});
  const std::string texts[] = {"VORTIL:vg:CALLBACK",
                               "Syntax error in DestroyedObject Item.",
                               "Error while evaluating DestroyedObject Item some:id",
                               "",
                               "Interrupt while evaluating DestroyedObject Item.",
                               "VORTIL:vg:CALLBACK"};
  for (int status = 0; status < 6; ++status)
    for (const bool print : {false, true}) {
      const vghost::ReportCapture reports;
      const vghost::WarningCapture warnings;
      vghost::setLastError("some:id", "");
      executor.handleError(item, print, CallbackExecutor::Status(status));
      EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_RAISE) == vxERROR_MODE_REPORT, status == 3);
      const bool isWarning = status == 0 || status == 5;
      std::string told;
      for (const auto& warning : warnings.messages())
        told += warning.identifier;
      for (const auto& report : reports.messages())
        told += report.message + (report.identifier.empty() ? "" : " ") + report.identifier;
      EXPECT_EQ(told, print || isWarning ? texts[status] : "") << status;
    }
}

TEST_F(Callbacks, AskTheOneInstanceAndWhatItOverrides) {
  {
    Executor executor;
    EXPECT_EQ(CallbackExecutor::getInstance(), &executor);
    executor.waitForFinished();  // which has not begun
    const auto item = boost::make_shared<Item>([] {});
    executor.isInterrupted = true;
    executor.enqueue(item);
    executor.postProcessCallback(vlutil::cmddistributor::inEXECUTION_CLEAN);
    EXPECT_EQ(executor.dequeue(), item);
    EXPECT_EQ(executor.callEventCallback(item), vlutil::cmddistributor::inEXECUTION_INTERRUPTED);
  }
  EXPECT_EQ(CallbackExecutor::sInstancePtr, nullptr);
  EXPECT_EQ(CallbackExecutor::getInstance(), CallbackExecutor::sInstancePtr);
  EXPECT_NE(CallbackExecutor::sInstancePtr, nullptr);
}

TEST_F(Callbacks, AreServedInOrderHoweverManyUntilOneIsRefused) {
  static constexpr std::size_t kMany = 1'000'000;
  static constexpr std::size_t kRefused = kMany / 2;
  const std::jthread thread(
      [] {  // its stack has the usual size whatever that of the main thread is
        Executor executor;
        std::vector<std::size_t> order;
        const auto numbered = [&](std::size_t number) {
          return boost::make_shared<Item>([&order, number] { order.push_back(number); });
        };
        const auto first = numbered(0);
        first->isOpen = false;
        first->work = [&] { order.push_back(0), executor.waitForStarted(); };
        executor.atEnd = [&](auto) {  // with the wait ends that the first let others in
          if (order.size() == kRefused) executor.waitForFinished();
        };
        for (std::size_t i = 1; i < kMany; ++i)
          executor.enqueue(numbered(i));
        EXPECT_TRUE(executor.processCallback(first, true));
        executor.waitForStarted();
        EXPECT_TRUE(executor.processCallback(numbered(kMany), true));
        std::vector<std::size_t> expected(kMany + 1);
        std::iota(expected.begin(), expected.end(), 0);
        std::swap(expected[kRefused], expected[kMany]);
        EXPECT_TRUE(order == expected);
      });
}

/// An event that throws at what runs, and tells what becomes of its data.
struct Event final : vcos::COSClassInstanceEventData, vghost::CallbackEvaluator {
  COSInterfacePtr getSource() const override { return object; }
  COSInterfacePtr getInstance() const override { return object; }
  const vxArray* getArray() override { return told += "given ", data.get(); }
  void releaseArray(const vxArray*) noexcept override { told += "released "; }
  vghost::CallbackOutcome run(const vxArray*, const vxArray*, const vxArray*) override { throw 1; }

  COSInterfacePtr object;
  ArrayOwner data = scalar(1);
  std::string told;
};

TEST_F(Callbacks, AreFiredByListenersForObjectsThatHaveOne) {
  Executor executor;
  const COSInterfacePtr object = sampleObject("Line");
  for (const char* name : {"OnPress", "Tag"})
    propertyOf(object, name).setFromText(object.get(), "text");
  for (const std::string_view name : {"OnPress", "Tag", "OnNothing"})
    for (auto* const made :
         {createListener(name.data(), true), createClassListener(name.data(), true, true)}) {
      const std::unique_ptr<vcos::COSListener> listener(made);
      EXPECT_EQ(listener->getPriority(), 100);
      Event event;
      vghost::installCallbackEvaluator(&event);
      listener->handleEvent(nullptr);
      listener->handleEvent(&event);  // which has no object
      event.object = object;
      const std::size_t references = vghost::callbackReferences();
      const bool runs = name == "OnPress";
      if (runs)
        EXPECT_THROW(listener->handleEvent(&event), int);
      else
        listener->handleEvent(&event);
      EXPECT_EQ(event.told, runs ? "given released " : "");
      EXPECT_EQ(vghost::callbackReferences(), references + runs) << "an exception leaves one";
    }
  vghost::installCallbackEvaluator(nullptr);
  svClearVGStatus(4);
}

TEST_F(Callbacks, ReadPropertiesByTheirTypes) {
  static auto& odd = *new vcos::COSClass("test.Odd", nullptr);
  odd.addProperty("Interruptible", COSNameID("double"));
  odd.addProperty("BusyAction", COSNameID("string"));
  const COSInterfacePtr object = odd.createObject();
  propertyOf(object, "BusyAction").setFromText(object.get(), "queue");
  CallbackItem item(object, {}, nullptr);
  EXPECT_FALSE(item.canQueue() || item.isInterruptible());
  propertyOf(object, "Interruptible").setValue(object.get(), COSValue::fromDouble(0.25));
  EXPECT_TRUE(item.isInterruptible());
}

TEST_F(Callbacks, AreNoneWithEmptyCode) {
  const auto access = accessOf("Callback");
  const vcos::OwnedValue empty(access.dataType(), access.fromText(""));
  EXPECT_TRUE(access.dataType().isEqual(empty.get(), {}));
  EXPECT_TRUE(access.dataType().isEqual({}, empty.get()));
}

}  // namespace
