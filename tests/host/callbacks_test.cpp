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

/// A callback of a function with an argument: another function, or an array told in words.
VCallback with(const std::string& argument) {
  const bool isArray = argument.find(' ') != std::string::npos;
  ArrayOwner cells = zeros(kCell, {1, 2});
  vxSetCell(cells.get(), 0, vxCreateFunctionHandle("f"));
  vxSetCell(cells.get(), 1,
            isArray ? array(argument).release() : vxCreateFunctionHandle(argument.c_str()));
  return VCallback(cells.get());
}

TEST(VCallback, IsCodeAFunctionOrOneOfTheseWithArgumentsAndEqualByItsContent) {
  const std::vector<std::string> rows = split(
      "f|g|1x1 char 97|1x1 int8 97|1x1 double 0|1x1 double -0|1x1 double nan|1x2 double 0|"
      "complex 1x1 double 0|sparse 1x1 double 0|1x1 cell 1|1x1 cell 2|1x1 struct 1|1x1 struct 2|"
      "1x1 object 1");
  for (const std::string& one : rows)
    for (const std::string& other : rows) {
      const bool isSame = &one == &other && &one != &rows.back();  // each time another object
      const VCallback callback = with(other);
      EXPECT_EQ(with(one).isEqual(&callback), isSame) << one << ", " << other;
    }
  const VCallback empty(array("1x0 char").get());
  EXPECT_TRUE(VCallback(array("0x0 char").get()).isEqual(&empty));
  EXPECT_THROW(VCallback(nullptr), gui_objects::ArrayException);
  for (const char* words : {"2x1 char", "1x2x2 char", "0x0 double", "0x0 cell", "1x1 cell"})
    EXPECT_THROW(VCallback(array(words).get()), gui_objects::ArrayException) << words;
}

TEST(VCallback, DoesNothingWithoutAnEvaluator) {
  EXPECT_EQ(with("f").execute(nullptr, nullptr), 0);
}

TEST(Waits, NestAndDoNotBeginWhereAnObserverThrows) {
  struct Observer final : WaitForObserver {
    void waitForStarted() override { refuses ? throw 1 : ++depth; }
    void waitForFinished() override { --depth; }

    bool refuses = false;
    int depth = 0;
  };
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

TEST(Listeners, AreToldByPriorityAndThenInTheirOrderThoughOneAddsAnother) {
  static auto& owner = *new vcos::COSClass("test.Listened", nullptr);
  static std::string told;
  struct Telling final : vcos::COSListenerOp {
    explicit Telling(char newName) : name(newName) {}
    void handleEvent(vcos::COSEventData*) override {
      told += name;
      if (name == 'a') listen('z', 300);
    }
    static void listen(char name, int priority) {
      vcos::COSListener* const made = vcos::COSListener::createListener(new Telling(name));
      made->setPriority(priority);
      owner.addListener(vcos::COSNameID("Event"), made);
    }

    char name;
  };
  owner.addEvent(vcos::COSNameID("Event"), vcos::COSEventKind::OfObject);
  for (const auto& [name, priority] :
       {std::pair('c', 0), {'b', 100}, {'d', 0}, {'a', 200}, {'e', -1}})
    Telling::listen(name, priority);
  for (const char* expected : {"abcde", "zabcde"}) {
    told.clear();
    owner.fireEvent(vcos::COSNameID("Event"), {}, nullptr);
    EXPECT_EQ(told, expected);
  }
}

}  // namespace
