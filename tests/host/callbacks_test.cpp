// What users assign to callbacks, who is told of waits, and who listens to events.

#include "support/Arrays.h"

#include <callback/VCallback.h>
#include <callback/WaitForObserver.h>
#include <gtest/gtest.h>
#include <gui_objects/exceptions.h>
#include <vcos/COSListener.h>

#include <memory>

namespace {

using namespace test;

/// A callback told in words: code behind an apostrophe, or a function, and an argument if there is
/// one.
std::unique_ptr<VCallback> made(const std::string& words) {
  const std::string head = words.substr(0, words.find(' '));
  const char* const name = head.c_str();
  ArrayOwner form(*name == '\'' ? vxCreateString(name + 1) : vxCreateFunctionHandle(name));
  if (head != words) {
    ArrayOwner cells = zeros(kCell, {1, 2});
    vxSetCell(cells.get(), 0, form.release());
    vxSetCell(cells.get(), 1, array(words.substr(head.size())).release());
    form = std::move(cells);
  }
  return std::make_unique<VCallback>(form.get());
}

TEST(VCallback, IsCodeAFunctionOrOneOfTheseWithArgumentsAndEqualByItsContent) {
  const std::vector<std::string> rows = split(
      "'|'a|'b|f|g|'a 1x1 int8 1|f 1x1 int8 1|f 1x1 double 0|f 1x1 double -0|f 1x1 double nan|"
      "f 1x2 double 0|f complex 1x1 double 0|f sparse 1x1 double 0|f 1x1 cell 1|f 1x1 cell 2|"
      "f 1x1 struct 1|f 1x1 struct 2|f 1x1 object 1");
  for (const std::string& one : rows)
    for (const std::string& other : rows) {
      const bool isSame = &one == &other && &one != &rows.back();  // each time another object
      EXPECT_EQ(made(one)->isEqual(made(other).get()), isSame) << one << ", " << other;
    }
  EXPECT_TRUE(VCallback(array("1x0 char").get()).isEqual(made("'").get()));
  EXPECT_THROW(VCallback(nullptr), gui_objects::NullArrayException);
  EXPECT_THROW(VCallback(array("2x1 char").get()), gui_objects::InvalidArrayShapeException);
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
