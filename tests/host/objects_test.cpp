// Objects: who keeps them, what their properties hold while values come and go, and numbers of
// objects.

#include "support/Objects.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <ut/class_numbers.h>
#include <ut/memory.h>
#include <vcos/COSIterator.h>
#include <vcos/exceptions.h>

#include <cmath>
#include <deque>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace vcos;
using test::propertyOf;
using test::Record;
using test::Watched;
using testing::ElementsAre;

/// Of objects that hold another one, and a text.
COSClass& linkedClass() {
  static COSClass& linked = *[] {
    auto* made = new COSClass("test.Linked", nullptr);
    made->addProperty("Next", COSNameID("handle"));
    made->addProperty("Text", COSNameID("string"));
    return made;
  }();
  return linked;
}

void link(COSInterface* object, COSInterface* next) {
  static COSPropInfo& property = propertyOf(linkedClass().createObject(), "Next");
  property.setValue(object, COSValue::fromPointer(next));
}

TEST(Object, EndsWithTheLastReferenceThoughThatIsItsOwn) {
  for (const bool isDestroyed : {false, true}) {
    COSInterfacePtr object = linkedClass().createObject();
    COSInterface* const bare = object.get();
    const Watched watched(object);
    link(bare, bare);
    if (isDestroyed) COSClass::destroyObject(object);
    EXPECT_TRUE(watched.isAlive());
    object = {};
    EXPECT_EQ(watched.isAlive(), !isDestroyed);
    if (!isDestroyed) link(bare, nullptr);
    EXPECT_FALSE(watched.isAlive());
  }
}

/// Belongs to whoever makes it, and tells when a reference to it goes.
struct Telling final : COSInterface {
  bool isDestroyed() const override { return false; }
  COSClass* getClass() const override { return nullptr; }
  COSInterfacePtr findProperty(COSNameID) const override { return {}; }
  void addRef() noexcept override {}
  void release() noexcept override { atRelease(); }

  std::function<void()> atRelease;
};

TEST(Object, NeverShowsAWordThatIsBeingDestroyed) {
  const COSInterfacePtr object = linkedClass().createObject();
  const COSPropInfo& next = propertyOf(object, "Next");
  Telling first;
  Telling second;
  int told = 0;
  first.atRelease = [&] {
    EXPECT_EQ(next.getValue(object.get()), COSValue::fromPointer(&second));
    ++told;
  };
  second.atRelease = [&] {
    EXPECT_THROW(link(object.get(), nullptr), COSException);
    EXPECT_TRUE(object->isDestroyed());
    COSClass::destroyObject(object);
    ++told;
  };
  link(object.get(), &first);
  link(object.get(), &second);
  COSClass::destroyObject(object);
  EXPECT_EQ(told, 2);
}

TEST(Object, OfAChainOfAMillionEndsWithoutADeepStack) {
  for (const bool isDestroyedFirst : {false, true}) {
    COSInterfacePtr first = linkedClass().createObject();
    const Watched last(first);
    for (int i = 0; i < 1'000'000; ++i) {
      const COSInterfacePtr next = std::exchange(first, linkedClass().createObject());
      link(first.get(), next.get());
    }
    EXPECT_TRUE(last.isAlive());
    if (isDestroyedFirst) COSClass::destroyObject(first);
    first = {};
    EXPECT_FALSE(last.isAlive());
  }
}

TEST(Object, IsSharedByThreads) {
  COSInterfacePtr object = linkedClass().createObject();
  const Watched watched(object);
  const auto share = [&object] {
    for (int i = 0; i < 100'000; ++i)
      const std::vector<COSInterfacePtr> mine(2, object);
  };
  for (std::vector<std::jthread> threads; threads.size() < 4;)
    threads.emplace_back(share);
  EXPECT_TRUE(watched.isAlive());
  object = {};
  EXPECT_FALSE(watched.isAlive());
}

TEST(Class, HasDefaultsOfItsOwnAndPropertiesThatItsObjectsGetLater) {
  static COSClass& late = *new COSClass("test.Late", &linkedClass());
  const auto set = [](const char* name, const char* text) {
    late.setDefault(COSNameID(name), COSValue::fromPointer(text));
  };
  const COSInterfacePtr object = late.createObject();
  EXPECT_THROW(linkedClass().addProperty("Late", COSNameID("string")), COSException);
  late.addProperty("Late", COSNameID("string"));
  EXPECT_THROW(late.addProperty("Late", COSNameID("string")), COSException);
  EXPECT_THROW(late.addProperty("Later", COSNameID("no such type")), COSException);
  COSPropInfo& added = propertyOf(object, "Late");
  const auto value = [&] { return added.getValue(object.get()).asPointer<const char>(); };
  EXPECT_EQ(value(), nullptr);
  set("Late", "first");
  set("Late", "second");
  EXPECT_STREQ(value(), "second");
  added.setValue(object.get(), {});
  EXPECT_EQ(value(), nullptr) << "as it was set";
  EXPECT_THROW(set("Text", "inherited"), COSException);
  EXPECT_THROW(set("Other", ""), COSException);
  EXPECT_THROW(late.setHook(COSNameID("Text"), nullptr), COSException);
  COSClass similar("test.Similar", &linkedClass());
  similar.addProperty("Late", COSNameID("string"));
  for (const COSClass* other : {&linkedClass(), &similar})
    EXPECT_THROW(added.setValue(other->createObject().get(), {}), COSException);
  EXPECT_TRUE(late.isA(COSNameID("test.Linked")) && !late.isA(COSNameID("Linked")));
  COSClass::destroyObject(object);
  EXPECT_FALSE(object->findProperty(COSNameID("Late")));
  EXPECT_THROW(value(), COSException);
}

struct Refusal {};

TEST(Hook, SeesTheNewValueAndMayRefuseItOrEndTheObject) {
  static const COSNameID kText("Text");
  static COSClass& hooked = *new COSClass("test.Hooked", nullptr);
  hooked.addProperty("Text", COSNameID("string"));
  hooked.setDefault(kText, COSValue::fromPointer("default"));
  static COSPropInfo& text = propertyOf(hooked.createObject(), "Text");
  static const auto set = [](COSInterface* object, const char* value) {
    text.setValue(object, COSValue::fromPointer(value));
  };
  static const auto get = [](COSInterface* object) {
    return std::string(text.getValue(object).asPointer<const char>());
  };
  static const auto setAgain = [](COSInterface* object) {
    if (get(object) == "new") set(object, "newest");
  };
  static const auto destroy = [](COSInterface* object) {
    COSClass::destroyObject(COSInterfacePtr(object));
  };
  const std::pair<COSPropertyHook, std::string> rows[] = {
      {[](auto* object, COSValue value) { EXPECT_EQ(text.getValue(object), value); }, "new"},
      {[](auto*, COSValue) { throw Refusal(); }, "refused, old"},
      {[](auto* object, COSValue) { destroy(object); }, "destroyed"},
      {[](auto* object, COSValue) { destroy(object), throw Refusal(); }, "refused, destroyed"},
      {[](auto* object, COSValue) { setAgain(object); }, "newest"},
      {[](auto* object, COSValue) { setAgain(object), throw Refusal(); }, "refused, old"},
  };
  const std::size_t before = vghost::liveBlocks();
  for (const auto& [hook, end] : rows) {
    for (const bool hasOwn : {false, true}) {
      const COSInterfacePtr object = hooked.createObject();
      hooked.setHook(kText, nullptr);
      if (hasOwn) set(object.get(), "own");
      hooked.setHook(kText, hook);
      std::string reached;
      try {
        set(object.get(), "new");
      } catch (const Refusal&) {
        reached = "refused, ";
      }
      const std::string left = object->isDestroyed() ? "destroyed" : get(object.get());
      reached += left == (hasOwn ? "own" : "default") ? "old" : left;
      EXPECT_EQ(reached, end) << hasOwn;
    }
    EXPECT_EQ(vghost::liveBlocks(), before) << end;
  }
}

TEST(Composite, HasNoPropertiesAndIsWalkedForwardAlone) {
  const COSInterfacePtr composite = createComposite({});
  EXPECT_FALSE(composite->findProperty(COSNameID("Text")) || composite->isDestroyed());
  for (const auto& [kind, direction] : {std::pair(2, 0), {3, 1}})
    EXPECT_THROW(COSIterator(composite.get(), kind, direction), COSException);
  EXPECT_THROW(COSIterator(nullptr, 3, 0), COSException);
}

TEST(HandleTable, GivesFreshNumbersAndTheSmallestFreeIntegers) {
  const COSInterfacePtr object = linkedClass().createObject();
  Record records[2] = {Record(object.get()), Record(object.get())};
  std::set<double> numbers;
  constexpr int kMoreThanAPlaceHas = 70'000;
  for (int i = 0; i < kMoreThanAPlaceHas; ++i) {
    const double number = new_handle(&records[i % 2], -1.0);
    const bool isWhole = std::trunc(number) == number;
    if (isWhole || number <= 0 || !numbers.insert(number).second) FAIL() << number;
    destroy_handle(number);
    if (handle2pointer(number)) FAIL() << number;
  }
  std::deque<Record> figures;
  const auto next = [&] { return new_figure_handle(&figures.emplace_back(object.get())); };
  const auto assign = [&](int number) {
    assign_figure_handle(&figures.emplace_back(object.get()), number);
    return figures.back().handle;
  };
  EXPECT_THAT((std::vector{next(), assign(3), assign(-7), next(), next()}),
              ElementsAre(1, 3, -7, 2, 4));
  for (const int number : {3, 2, -7})
    destroy_handle(number);
  EXPECT_THAT((std::vector{next(), next(), next()}), ElementsAre(2, 3, 5));
  EXPECT_EQ(assign(1), 1);
  EXPECT_EQ(handle2pointer(1), &figures.back());
  EXPECT_EQ(figures.front().handle, -1) << "another record has its place";
}

TEST(HandleTable, LeadsToARecordUntilTheNumberIsUnboundAndTheObjectIsGone) {
  COSInterfacePtr object = linkedClass().createObject();
  Record one(nullptr);
  Record other(object.get());
  const double number = new_handle(&one, -1.0);
  EXPECT_EQ(handle2pointer(number), &one);
  rebind_handle(number, &other);
  EXPECT_EQ(handle2pointer(number), &other);
  EXPECT_EQ(std::pair(one.handle, other.handle), std::pair(-1.0, number));
  COSClass::destroyObject(object);
  EXPECT_EQ(other.object, object.get()) << "it is still referred to";
  object = {};
  EXPECT_EQ(other.object, nullptr);
  EXPECT_EQ(handle2pointer(number), &other);
  rebind_handle(number, nullptr);
  rebind_handle(number, &one);
  EXPECT_EQ(handle2pointer(number), nullptr);
  const double numbers[] = {new_handle(&one, -1.0), new_handle(&one, -1.0)};
  for (const double each : numbers) {
    EXPECT_EQ(handle2pointer(each), &one) << "a record may have two numbers";
    destroy_handle(each);
  }
  object = createComposite({});
  const Watched composite(object);
  object = {};
  EXPECT_FALSE(composite.isAlive());
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double none : {std::nan(""), infinity, -infinity, 1e308, -1.0, 0.25, 1e9 + 0.5}) {
    destroy_handle(none);
    EXPECT_EQ(handle2pointer(none), nullptr) << none;
  }
}

TEST(ClassNumbers, TellWhatDerivesFromWhat) {
  EXPECT_EQ(utGetClassNum("test base"), -1);
  const int base = utRegisterObjectClass("test base", -1, 0);
  const int derived = utRegisterObjectClass("test derived", base, 0);
  EXPECT_EQ(utGetClassNum("test derived"), derived);
  EXPECT_EQ(utRegisterObjectClass("test base", derived, 0), base) << "it stays what it is";
  for (const auto& [number, baseNumber] : {std::pair(base, base), {derived, base}})
    EXPECT_TRUE(utInstanceOf(number, baseNumber));
  for (const auto& [number, baseNumber] :
       {std::pair(base, derived), {-1, -1}, {-1, base}, {derived, -1}, {derived + 1, derived + 1}})
    EXPECT_FALSE(utInstanceOf(number, baseNumber)) << number << " of " << baseNumber;
}

TEST(LastError, IsNullBeforeTheFirstAndWhereItWasCleared) {
  std::jthread([] {  // which has raised none
    for (const bool isCleared : {false, true}) {
      if (isCleared) test::identifierRaisedBy([] { vxErrMsg(17); });
      if (isCleared) vghost::clearLastError();
      EXPECT_TRUE(!test::lastError().identifier && !test::lastError().text);
    }
  });
}

}  // namespace
