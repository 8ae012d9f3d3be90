// What users assign to callbacks, who is told of waits, and who listens to events.

#include "support/Arrays.h"
#include "support/HostError.h"

#include <callback/VCallback.h>
#include <callback/WaitForObserver.h>
#include <gtest/gtest.h>
#include <gui_objects/exceptions.h>
#include <vcos/COSListener.h>

#include <memory>

namespace {

using namespace test;

ArrayOwner cells(vxArray* first, vxArray* second) {
  ArrayOwner made(vxCreateCellMatrix(1, 2));
  vxSetCell(made.get(), 0, first);
  vxSetCell(made.get(), 1, second);
  return made;
}

TEST(VCallback, IsCodeAFunctionOrOneOfTheseWithArgumentsAndEqualByItsContent) {
  const auto function = [](const char* name) { return vxCreateFunctionHandle(name); };
  const auto with = [&](vxArray* argument) { return cells(function("f"), argument); };
  const auto made = [&with](const char* words) { return with(array(words).release()); };
  ArrayOwner field = array("1x1 struct");
  const vcos::COSInterfacePtr object = numberedObject(1);
  const auto all = [&] {
    std::vector<ArrayOwner> forms;
    forms.push_back(array("1x2 char 97 98"));
    forms.push_back(array("1x2 char 97 99"));
    forms.push_back(ArrayOwner(function("f")));
    forms.push_back(ArrayOwner(function("g")));
    forms.push_back(cells(vxCreateString(""), nullptr));
    for (const char* words : {"1x1 double 0", "1x1 double -0", "1x1 double nan", "1x1 single 0",
                              "1x2 double 0", "complex 1x1 double 0", "sparse 1x1 double 0",
                              "1x1 struct 1", "1x1 struct 2", "1x1 cell 1", "1x1 cell 2"})
      forms.push_back(made(words));
    forms.push_back(with(omCreateVCOSScalar(object)));
    forms.push_back(with(omCreateVCOSScalar(numberedObject(1))));
    return forms;
  };
  const std::vector<ArrayOwner> one = all();
  const std::vector<ArrayOwner> other = all();
  for (std::size_t i = 0; i < one.size(); ++i)
    for (std::size_t j = 0; j < one.size(); ++j) {
      const bool isSame = i == j && i + 1 < one.size();  // the last has another object each time
      EXPECT_EQ(VCallback(one[i].get()).isEqual(std::make_unique<VCallback>(other[j].get()).get()),
                isSame)
          << i << " and " << j;
    }
  const std::unique_ptr<VCallback> empty(VCallback::createFromString(""));
  EXPECT_TRUE(empty->isEqual(std::make_unique<VCallback>(array("1x0 char").get()).get()));
  EXPECT_THROW(VCallback(nullptr), gui_objects::NullArrayException);
  EXPECT_THROW(VCallback(array("2x1 char").get()), gui_objects::InvalidArrayShapeException);
  EXPECT_THROW(VCallback(cells(nullptr, nullptr).get()), gui_objects::NullArrayException);
  EXPECT_THROW(VCallback(array("1x1 double").get()), gui_objects::InvalidArrayClassException);
}

TEST(VCallback, RunsByItsReferenceWhenItHasEndedItself) {
  struct Ending final : vghost::CallbackEvaluator {
    vghost::CallbackOutcome run(const vxArray* code, const vxArray*, const vxArray*) override {
      callback.reset();
      EXPECT_EQ(vxArrayToStdString(code), "code");
      return {.hasFailed = true, .wasSaved = true};
    }
    std::unique_ptr<VCallback> callback{VCallback::createFromString("code")};
  } ending;
  EXPECT_EQ(ending.callback->execute(nullptr, nullptr), 0) << "without an evaluator";
  EXPECT_EQ(vghost::installCallbackEvaluator(&ending), nullptr);
  VCallback* const reference = GetVCallbackReference(ending.callback.get());
  EXPECT_NE(reference->execute(nullptr, nullptr), 0);
  EXPECT_TRUE(reference->wasExceptionCaughtAndSaved());
  EXPECT_EQ(vghost::installCallbackEvaluator(nullptr), &ending);
  EXPECT_EQ(vghost::callbackReferences(), 1U);
  DestroyVCallback(reference);
  DestroyVCallback(nullptr);
  EXPECT_EQ(vghost::callbackReferences(), 0U);
}

/// Told of waits; refuses one if it has to.
struct Observer final : WaitForObserver {
  void waitForStarted() override {
    if (refuses) throw 1;
    ++depth;
  }
  void waitForFinished() override { --depth; }

  bool refuses = false;
  int depth = 0;
};

TEST(Waits, NestAndDoNotBeginWhereAnObserverThrows) {
  Observer first;
  Observer second;
  vghost::startWait();
  second.refuses = true;
  EXPECT_THROW(vghost::startWait(), int);
  EXPECT_EQ(std::pair(first.depth, second.depth), std::pair(1, 1));
  EXPECT_TRUE(vghost::finishWait());
  EXPECT_FALSE(vghost::finishWait());
  EXPECT_EQ(std::pair(first.depth, second.depth), std::pair(0, 0));
}

std::string told;

TEST(Listeners, AreToldByPriorityAndThenInTheirOrderThoughOneAddsAnother) {
  struct Telling final : vcos::COSListenerOp {
    Telling(vcos::COSClass& newOwner, char newName) : owner(newOwner), name(newName) {}
    void handleEvent(vcos::COSEventData*) override {
      told += name;
      if (name == 'a') listen(owner, 'z', 300);
    }
    static void listen(vcos::COSClass& owner, char name, int priority) {
      vcos::COSListener* const made = vcos::COSListener::createListener(new Telling(owner, name));
      made->setPriority(priority);
      owner.addListener(vcos::COSNameID("Event"), made);
    }

    vcos::COSClass& owner;
    char name;
  };
  static auto& owner = *new vcos::COSClass("test.Listened", nullptr);
  owner.addEvent(vcos::COSNameID("Event"), vcos::COSEventKind::OfObject);
  for (const auto& [name, priority] :
       {std::pair('c', 0), {'b', 100}, {'d', 0}, {'a', 200}, {'e', -1}})
    Telling::listen(owner, name, priority);
  for (const char* expected : {"abcde", "zabcde"}) {
    told.clear();
    owner.fireEvent(vcos::COSNameID("Event"), {}, nullptr);
    EXPECT_EQ(told, expected);
  }
}

}  // namespace
