// What becomes of a firing.

#include "callbacks/Model.h"
#include "callbacks/Product.h"
#include "support/Outcomes.h"

#include <graphics/datatype/CallbackDataType.h>
#include <graphics/datatype/listeners.h>
#include <boost/smart_ptr/make_shared.hpp>

#include <thread>

namespace {

using namespace test;
using namespace graphics::datatype;

using Callbacks = Samples;

/// The codes of the objects (empty ones for the rest), acts, and what they tell; with "|" between.
constexpr const char* kScenarios[][3] = {
    {"||", "i0 b0 p0|n0|u3", "0d[];0|0z[];0|3n[];0"},
    {"p1", "i1 p0", "0d[1d[];0];0"},
    {"|||p0", "p3", "3d[0d[];0];0"},
    {"p1 n2 p1", "i0 b0 p0", "0d[];01d[];02z[];01d[];0"},
    {"p1 p3", "i0 b1 p0", "0d[];0"},
    {"u1", "i0 b1 p0", "0d[1n[];0];0"},
    {"p1 p2|p2", "i1 p0", "0d[1d[];02d[];0];02d[];0"},
    // What runs is what the property holds by then, if the object lives.
    {"p1 c1c||s", "i0 p0", "0d[];01d[];2"},
    {"p1 c1-", "i0 p0", "0d[];0;0"},
    {"c0- p0", "p0|p0", "0d[];0|"},
    {"p1 p2 x1", "i0 p0", "0d[];0;02d[];0"},
    // Failures.
    {"x0 p0 e", "p0", "0d[]< Error while evaluating DestroyedObject OnPress.>;2"},
    {"p1 e|f", "i0 p0",
     "0d[]< Error while evaluating vortil.graphics.Line OnPress.>;2"
     "1d[]<id Error while evaluating vortil.ui.Figure OnPress>;2"},
    // Interrupts: on the way, at entry, and with the mark of an earlier one.
    {"p1 ^ !", "i0 p0|p1", "0d[];4 mark|1d[];0"},
    {"f q ^ !", "p0", "0d[]< Interrupt while evaluating vortil.graphics.Line OnPress.>;4 mark"},
    {"p1? I0 p2|^ !", "p0", "0d[1d[];4!InterruptException2d[];0];0"},
    {"p1 u2?||^ !", "i0 p0", "0d[2n[];4!InterruptException];4 mark"},
    {"p1|^ !", "p0|p3",
     "0d[1d[];4!InterruptException!InterruptException bit references1 mark|"
     "3d[];0 bit references1"},
    {"p1 ^", "i0 p0|o p0", "0d[];0;0|0d[];0;0"},
    {"p1", "i0 q p0 Q|^ ! ^ p1|o p1",
     "0d[];3 mode vortil.ui.Figure.OnPress|;4 mode mark|1d[];0 mode"},
    // Quits.
    {"p1 q f", "i0 p0|Q p1", "0d[];3 mode vortil.ui.Figure.OnPress|1d[];01d[];0 mode"},
    {"u1|p2 q", "i1 p0",
     "0d[1n[];3!DebugQuitException!DebugQuitException bit mode references1"
     " vortil.graphics.Text.OnPress"},
    // Waits, the last of which outlives its callback.
    {"w w p1 W p1 W p2", "i0 p0", "0d[1d[];01d[];0];02d[];0"},
    {"w", "i0 p0|W p1 n2|p3|u0|w u2",
     "0d[];0| vortil.ui.Figure.OnPress vortil.graphics.Text.OnNotify|"
     " vortil.ui.Figure.OnPress vortil.graphics.Text.OnNotify|"
     "0n[];0 vortil.graphics.Text.OnNotify vortil.ui.Figure.OnPress|2n[];02z[];01d[];0"},
    {"p1? p2|t", "p0|p1|i1 w p2",
     "0d[1d[!Thrown2d[];0];0 references1|1d[!Thrown bit references2|2d[];0 bit references2"},
};

TEST_F(Callbacks, DoWhatTheScenarioTells) {
  for (const auto& [codes, steps, told] : kScenarios) {
    Product product(split(codes));
    Model model(split(codes));
    std::string byProduct;
    std::string byModel;
    for (const std::string& acts : split(steps)) {
      byProduct.append(byProduct.empty() ? "" : "|").append(product.step(acts));
      byModel.append(byModel.empty() ? "" : "|").append(model.step(acts));
    }
    EXPECT_EQ(byProduct, told) << codes;
    EXPECT_EQ(byModel, told) << "the model, " << codes;
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
  const std::string reports[] = {"",
                                 "Syntax error in DestroyedObject Item.",
                                 "Error while evaluating DestroyedObject Item",
                                 "",
                                 "Interrupt while evaluating DestroyedObject Item.",
                                 ""};
  for (int status = 0; status < 6; ++status)
    for (const bool print : {false, true}) {
      const vghost::ReportCapture told;
      const vghost::WarningCapture warned;
      vghost::setLastError("some:id", "");
      executor.handleError(item, print, CallbackExecutor::Status(status));
      EXPECT_EQ(vxSetErrorMode(vxERROR_MODE_RAISE) == vxERROR_MODE_REPORT, status == 3);
      const bool isWarning = status == 0 || status == 5;
      ASSERT_EQ(warned.messages().size(), isWarning ? 1U : 0U) << status;
      for (const auto& warning : warned.messages())
        EXPECT_EQ(warning.identifier, "VORTIL:vg:CALLBACK");
      ASSERT_EQ(told.messages().size(), print && !reports[status].empty() ? 1U : 0U) << status;
      for (const auto& report : told.messages())
        EXPECT_EQ(report.message + report.identifier,
                  reports[status] + (status == 2 ? "some:id" : ""));
    }
}

TEST_F(Callbacks, AskTheExecutorOfADerivedClassAndOnceMoreTheOneInstance) {
  {
    Executor executor;
    EXPECT_EQ(CallbackExecutor::getInstance(), &executor);
    EXPECT_EQ(executor.dequeue(), nullptr);
    executor.waitForFinished();  // which has not begun
    const auto item = boost::make_shared<Item>([&] {
      EXPECT_TRUE(executor.isInCallback());
      EXPECT_THROW(executor.postProcessCallback(vlutil::cmddistributor::inEXECUTION_CLEAN),
                   Lindgrove::System::InterruptException);
    });
    executor.isInterrupted = true;
    executor.enqueue(item);
    EXPECT_EQ(executor.callEventCallback(item), vlutil::cmddistributor::inEXECUTION_INTERRUPTED);
    EXPECT_EQ(executor.dequeue(), nullptr);
    EXPECT_FALSE(utWasInterruptHandled() || executor.isInCallback());
  }
  EXPECT_EQ(CallbackExecutor::sInstancePtr, nullptr);
  EXPECT_EQ(CallbackExecutor::getInstance(), CallbackExecutor::sInstancePtr);
  EXPECT_NE(CallbackExecutor::sInstancePtr, nullptr);
}

TEST_F(Callbacks, AreServedInOrderHoweverManyUntilOneIsRefused) {
  static constexpr int kMany = 1'000'000;
  static constexpr int kRefused = kMany / 2;
  const std::jthread thread(
      [] {  // its stack has the usual size whatever that of the main thread is
        Executor executor;
        std::vector<int> order;
        bool isInside = false;
        const auto numbered = [&](int number) {
          return boost::make_shared<Item>([&, number] {
            EXPECT_FALSE(std::exchange(isInside, true));
            order.push_back(number);
            isInside = false;
          });
        };
        const auto first = numbered(0);
        first->isOpen = false;
        first->work = [&, work = first->work] { work(), executor.waitForStarted(); };
        int ends = 0;
        executor.atEnd = [&](auto) {  // with the wait ends that the first let others in
          if (++ends == kRefused) executor.waitForFinished();
        };
        std::vector<int> expected;
        for (int i = 0; i < kMany; ++i) {
          if (i > 0) executor.enqueue(numbered(i));
          if (i != kRefused) expected.push_back(i);
        }
        expected.insert(expected.begin() + kRefused, kMany + 1);
        expected.insert(expected.end(), {kRefused, kMany});
        EXPECT_TRUE(executor.processCallback(first, true));
        EXPECT_EQ(std::pair(int(order.size()), ends), std::pair(kRefused, kRefused));
        EXPECT_FALSE(executor.processCallback(numbered(kMany), true));
        executor.waitForStarted();
        EXPECT_TRUE(executor.processCallback(numbered(kMany + 1), true));
        EXPECT_EQ(ends, kMany + 2);
        EXPECT_TRUE(order == expected);
        executor.waitForFinished();
      });
}

/// An event that tells what becomes of its data.
struct Event final : vcos::COSClassInstanceEventData {
  vcos::COSInterfacePtr getSource() const override { return source; }
  vcos::COSInterfacePtr getInstance() const override { return instance; }
  const vxArray* getArray() override { return ++given, data.get(); }
  void releaseArray(const vxArray* array) noexcept override { released += array == data.get(); }

  COSInterfacePtr source;
  COSInterfacePtr instance;
  ArrayOwner data = scalar(1);
  int given = 0;
  int released = 0;
};

/// Throws at what runs.
struct Throwing final : vghost::CallbackEvaluator {
  vghost::CallbackOutcome run(const vxArray*, const vxArray*, const vxArray*) override {
    throw Thrown();
  }
};

TEST_F(Callbacks, AreFiredByListenersForObjectsThatHaveOne) {
  static auto& odd = *new vcos::COSClass("test.Odd", nullptr);
  const auto type = [](const char* name) { return accessOf(name).name(); };
  odd.addProperty("OnText", COSNameID("string"));
  odd.addProperty("OnPress", type("Callback"));
  odd.addProperty("Interruptible", COSNameID("double"));
  odd.addProperty("BusyAction", COSNameID("string"));
  const COSInterfacePtr object = odd.createObject();
  for (const char* name : {"OnText", "OnPress", "BusyAction"})
    propertyOf(object, name).setFromText(object.get(), "queue");
  CallbackItem item(object, vcos::COSPropInfoPtr(object->findProperty(COSNameID("OnPress"))),
                    nullptr);
  EXPECT_FALSE(item.canQueue() || item.isInterruptible() || item.wasExceptionCaught());
  const COSValue anyWord = COSValue::fromDouble(0.25);
  propertyOf(object, "Interruptible").setValue(object.get(), anyWord);
  EXPECT_TRUE(item.isInterruptible());

  Executor executor;
  Throwing throwing;
  vghost::installCallbackEvaluator(&throwing);
  const auto fire = [](vcos::COSListener* made, vcos::COSEventData* event) {
    const std::unique_ptr<vcos::COSListener> listener(made);
    EXPECT_EQ(listener->getPriority(), 100);
    try {
      listener->handleEvent(event);
      return false;
    } catch (const Thrown&) {
      return true;
    }
  };
  for (const char* name : {"OnText", "OnPress", "OnNothing"}) {
    for (const bool isOfClass : {false, true}) {
      Event event;
      const auto create = [&] {
        return isOfClass ? createClassListener(name, true, true) : createListener(name, true);
      };
      EXPECT_FALSE(fire(create(), nullptr));
      (isOfClass ? event.source : event.instance) = object;
      EXPECT_FALSE(fire(create(), &event)) << "the other one is null";
      std::swap(event.source, event.instance);
      const bool runs = std::string_view(name) == "OnPress";
      EXPECT_EQ(fire(create(), &event), runs);
      EXPECT_EQ(std::pair(event.given, event.released), std::pair(int(runs), int(runs)));
      EXPECT_EQ(fire(createClassListener(name, true, false), &event), runs && isOfClass);
      EXPECT_EQ(event.given, int(runs)) << "no data is asked for";
    }
  }
  vghost::installCallbackEvaluator(nullptr);
  svClearVGStatus(4);
}

TEST_F(Callbacks, AreNullOrEmptyCodeAndNothingElseThatIsNone) {
  const auto access = accessOf("Callback");
  auto& type = access.dataType();
  EXPECT_TRUE(type.getDefaultValue().isNull());
  for (const char* words : {"0x0 char", "1x0 char", "1x1 char"}) {
    const vcos::OwnedValue value(type, access.fromArray(array(words).get()));
    const int order = std::string_view(words) == "1x1 char" ? 2 : 0;
    EXPECT_EQ(type.compare(value.get(), {}), order) << words;
    EXPECT_EQ(type.compare({}, value.get()), order) << words;
  }
  for (const char* words : {"2x1 char", "1x2x2 char", "0x0 cell", "1x1 cell", "1x1 double",
                            "0x0 double", "1x1 struct", "1x1 object"})
    for (const bool isNested : {false, true}) {
      ArrayOwner row = isNested ? zeros(kCell, {1, 2}) : array(words);
      if (isNested) vxSetCell(row.get(), 0, array(words).release());
      EXPECT_EQ(identifierRaisedBy([&] { access.fromArray(row.get()); }),
                "VORTIL:datatypes:callback:CreateCallback")
          << words;
    }
  EXPECT_THROW(access.fromArray(zeros(kCell, {1, 1}).get()),
               Lindgrove::System::utErrorException_DEPRECATED)
      << "an element that is null";
}

}  // namespace
