// Objects: who keeps them, what their properties hold while values come and go, and numbers of
// objects.

#include "support/HostError.h"

#include <gmock/gmock.h>
#include <handles/handle_table.h>
#include <ut/class_numbers.h>
#include <ut/memory.h>
#include <vcos/COSClass.h>
#include <vcos/COSIterator.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>

#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace vcos;
using testing::ElementsAre;

/// Words without meaning; tells when one is destroyed.
struct TellingType final : COSDataType {
  const char* getDeclarationName() const override { return getName(); }
  const char* getName() const override { return "Telling"; }
  COSValue getDefaultValue() const override { return {}; }
  int getStorageType() const override { return 7; }
  const char* getCategoryName() const override { return ""; }
  std::size_t getSizeInBits() const override { return 64; }
  bool isEqual(COSValue a, COSValue b) const override { return a == b; }
  int compare(COSValue a, COSValue b) const override { return a == b ? 0 : 2; }
  std::size_t getValueSizeInBytes(COSValue) const override { return 8; }
  COSValue copy(COSValue value) const override { return value; }
  void destroy(COSValue value) const override {
    if (!value.isNull() && atDestroy) atDestroy();
  }

  static inline std::function<void()> atDestroy;
};

/// Of objects that hold another one, a text, and a word of TellingType.
COSClass& linkedClass() {
  static COSClass& linked = *[] {
    COSTypeRepository::addType(COSNameID("test.Telling"), new TellingType);
    auto* made = new COSClass("test.Linked", nullptr);
    made->addProperty("Next", COSNameID("handle"));
    made->addProperty("Text", COSNameID("string"));
    made->addProperty("Word", COSNameID("test.Telling"));
    return made;
  }();
  return linked;
}

COSPropInfo& property(const char* name) {
  return *COSPropInfoPtr(linkedClass().findProperty(COSNameID(name))).getObject();
}
void link(COSInterface* object, COSInterface* next) {
  property("Next").setValue(object, COSValue::fromPointer(next));
}
void setText(COSInterface* object, const char* text) {
  property("Text").setValue(object, COSValue::fromPointer(text));
}

/// A record of an object.
struct Record : HandleRecord {
  explicit Record(COSInterface* newObject = nullptr) : HandleRecord{0, -1, 0, newObject} {}
  ~Record() { destroy_handle(handle); }
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;
};

/// Sees an object end.
struct Watched : Record {
  explicit Watched(const COSInterfacePtr& newObject) : Record(newObject.get()) {
    new_handle(this, -1.0);
  }
  bool isAlive() const { return object != nullptr; }
};

TEST(Object, EndsWithTheLastReferenceThoughThatIsItsOwn) {
  COSInterfacePtr object = linkedClass().createObject();
  COSInterface* const bare = object.get();
  const Watched watched(object);
  link(bare, bare);
  object = {};
  EXPECT_TRUE(watched.isAlive());
  link(bare, nullptr);
  EXPECT_FALSE(watched.isAlive());

  object = linkedClass().createObject();
  const Watched other(object);
  link(object.get(), object.get());
  COSClass::destroyObject(object);
  EXPECT_TRUE(other.isAlive());
  object = {};
  EXPECT_FALSE(other.isAlive());
}

TEST(Object, NeverShowsAWordThatIsBeingDestroyed) {
  static constexpr int kWords[2] = {};
  const auto word = [](int i) { return COSValue::fromPointer(&kWords[i]); };
  const COSInterfacePtr object = linkedClass().createObject();
  COSPropInfo& telling = property("Word");
  std::vector<COSValue> seen;
  TellingType::atDestroy = [&] { seen.push_back(telling.getValue(object.get())); };
  telling.setValue(object.get(), word(0));
  telling.setValue(object.get(), word(1));
  EXPECT_THAT(seen, ElementsAre(word(1)));
  int refused = 0;
  TellingType::atDestroy = [&] {
    EXPECT_THROW(telling.setValue(object.get(), word(0)), COSException);
    EXPECT_TRUE(object->isDestroyed());
    COSClass::destroyObject(object);
    ++refused;
  };
  COSClass::destroyObject(object);
  EXPECT_EQ(refused, 1);
  TellingType::atDestroy = nullptr;
}

TEST(Object, OfAChainOfAMillionEndsWithoutADeepStack) {
  const std::size_t before = vghost::liveBlocks();
  for (const bool isDestroyedFirst : {false, true}) {
    COSInterfacePtr first = linkedClass().createObject();
    const Watched last(first);
    setText(first.get(), "last");
    for (int i = 0; i < 1'000'000; ++i) {
      COSInterfacePtr next = std::exchange(first, linkedClass().createObject());
      link(first.get(), next.get());
    }
    EXPECT_TRUE(last.isAlive());
    if (isDestroyedFirst) COSClass::destroyObject(first);
    first = {};
    EXPECT_FALSE(last.isAlive());
    EXPECT_EQ(vghost::liveBlocks(), before);
  }
}

TEST(Object, IsSharedByThreads) {
  COSInterfacePtr object = linkedClass().createObject();
  const Watched watched(object);
  const auto share = [&object] {
    for (int i = 0; i < 100'000; ++i) {
      const COSInterfacePtr mine = object;
      const std::vector<COSInterfacePtr> more(2, mine);
    }
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
  COSPropInfo& added = *COSPropInfoPtr(object->findProperty(COSNameID("Late"))).getObject();
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
  EXPECT_THROW(added.setValue(linkedClass().createObject().get(), {}), COSException);
  EXPECT_TRUE(late.isA(COSNameID("test.Linked")) && !late.isA(COSNameID("Linked")));
  EXPECT_EQ(late.properties().size(), linkedClass().properties().size() + 1);
}

struct Refusal {};
void destroy(COSInterface* object) {
  COSClass::destroyObject(COSInterfacePtr(object));
}

TEST(Hook, SeesTheNewValueAndMayRefuseItOrEndTheObject) {
  static COSClass& hooked = *new COSClass("test.Hooked", nullptr);
  static const COSNameID kText("Text");
  hooked.addProperty("Text", COSNameID("string"));
  hooked.setDefault(kText, COSValue::fromPointer("default"));
  static COSPropInfo& text = *COSPropInfoPtr(hooked.findProperty(kText)).getObject();
  static const auto set = [](COSInterface* object, const char* value) {
    text.setValue(object, COSValue::fromPointer(value));
  };
  static const auto get = [](COSInterface* object) {
    return std::string(text.getValue(object).asPointer<const char>());
  };
  static const auto setAgain = [](COSInterface* object) {
    if (get(object) == "new") set(object, "newest");
  };
  const struct {
    COSPropertyHook hook;
    bool isRefused;
    const char* left;  ///< null for a destroyed object
  } rows[] = {
      {[](auto* object, COSValue value) { EXPECT_EQ(text.getValue(object), value); }, false, "new"},
      {[](auto*, COSValue) { throw Refusal(); }, true, "old"},
      {[](auto* object, COSValue) { destroy(object); }, false, nullptr},
      {[](auto* object, COSValue) { destroy(object), throw Refusal(); }, true, nullptr},
      {[](auto* object, COSValue) { setAgain(object); }, false, "newest"},
      {[](auto* object, COSValue) { setAgain(object), throw Refusal(); }, true, "old"},
  };
  const std::size_t before = vghost::liveBlocks();
  for (const auto& row : rows) {
    for (const bool hasOwn : {false, true}) {
      SCOPED_TRACE(testing::Message() << &row - rows << hasOwn);
      const COSInterfacePtr object = hooked.createObject();
      hooked.setHook(kText, nullptr);
      if (hasOwn) set(object.get(), "old");
      hooked.setHook(kText, row.hook);
      bool isRefused = false;
      try {
        set(object.get(), "new");
      } catch (const Refusal&) {
        isRefused = true;
      }
      EXPECT_EQ(isRefused, row.isRefused);
      EXPECT_EQ(object->isDestroyed(), row.left == nullptr);
      if (!row.left) continue;
      const std::string left = row.left;
      EXPECT_EQ(get(object.get()), left == "old" && !hasOwn ? "default" : left);
    }
    EXPECT_EQ(vghost::liveBlocks(), before);
  }
}

TEST(Composite, IsWalkedElementByElement) {
  const COSInterfacePtr one = linkedClass().createObject();
  const COSInterfacePtr other = linkedClass().createObject();
  const auto walk = [](const COSInterfacePtr& object) {
    std::vector<COSInterfacePtr> elements;
    for (COSIterator each(object.get(), kIterateElements, kIterateForward); each.hasMoreElements();)
      elements.push_back(each.nextElement());
    return elements;
  };
  const COSInterfacePtr composite = createComposite({one, other, one});
  EXPECT_THAT(walk(composite), ElementsAre(one, other, one));
  EXPECT_THAT(walk(createComposite({})), ElementsAre());
  EXPECT_THAT(walk(one), ElementsAre(one));
  EXPECT_STREQ(composite->getClass()->getName(), "vortil.Composite");
  EXPECT_FALSE(composite->findProperty(COSNameID("Text")) || composite->isDestroyed());
  for (const auto& [kind, direction] : {std::pair(2, 0), {3, 1}})
    EXPECT_THROW(COSIterator(one.get(), kind, direction), COSException);
  EXPECT_THROW(COSIterator(nullptr, 3, 0), COSException);
}

bool isWhole(double number) {
  return std::trunc(number) == number;
}

TEST(HandleTable, GivesFreshNumbersAndTheSmallestFreeIntegers) {
  const COSInterfacePtr object = linkedClass().createObject();
  Record records[2] = {Record(object.get()), Record(object.get())};
  std::set<double> numbers;
  constexpr int kMoreThanAPlaceHas = 70'000;
  for (int i = 0; i < kMoreThanAPlaceHas; ++i) {
    const double number = new_handle(&records[i % 2], -1.0);
    if (isWhole(number) || number <= 0 || !numbers.insert(number).second) FAIL() << number;
    destroy_handle(number);
    if (handle2pointer(number)) FAIL() << number;
  }
  std::vector<std::unique_ptr<Record>> figures;
  const auto next = [&] {
    figures.push_back(std::make_unique<Record>(object.get()));
    return new_figure_handle(figures.back().get());
  };
  const auto assign = [&](int number) {
    figures.push_back(std::make_unique<Record>(object.get()));
    assign_figure_handle(figures.back().get(), number);
    return figures.back()->handle;
  };
  EXPECT_EQ(next(), 1);
  EXPECT_EQ(assign(3), 3);
  EXPECT_EQ(assign(-7), -7);
  EXPECT_EQ(next(), 2);
  EXPECT_EQ(next(), 4);
  destroy_handle(3);
  destroy_handle(2);
  EXPECT_EQ(next(), 2);
  EXPECT_EQ(next(), 3);
  EXPECT_EQ(next(), 5);
  Record& first = *figures.front();
  EXPECT_EQ(assign(1), 1);
  EXPECT_EQ(handle2pointer(1), figures.back().get());
  EXPECT_EQ(first.handle, -1) << "another record has its place";
}

TEST(HandleTable, LeadsToARecordUntilTheNumberIsUnboundAndTheObjectIsGone) {
  COSInterfacePtr objects[2] = {linkedClass().createObject(), linkedClass().createObject()};
  Record one(objects[0].get());
  Record other(objects[1].get());
  const double number = new_handle(&one, -1.0);
  EXPECT_EQ(handle2pointer(number), &one);
  EXPECT_EQ(one.handle, number);
  rebind_handle(number, &other);
  EXPECT_EQ(handle2pointer(number), &other);
  EXPECT_EQ(std::pair(one.handle, other.handle), std::pair(-1.0, number));
  COSClass::destroyObject(objects[1]);
  EXPECT_EQ(other.object, objects[1].get()) << "it is still referred to";
  objects[1] = {};
  EXPECT_EQ(other.object, nullptr);
  EXPECT_EQ(handle2pointer(number), &other);
  rebind_handle(number, nullptr);
  rebind_handle(number, &one);
  EXPECT_EQ(handle2pointer(number), nullptr);
  const double huge = std::numeric_limits<double>::max();
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double none : {std::nan(""), infinity, -infinity, huge, -1.0, 0.25, 1e9 + 0.5}) {
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
  const struct {
    int number, baseNumber;
    bool is;
  } rows[] = {
      {base, base, true}, {derived, base, true}, {base, derived, false},           {-1, -1, false},
      {-1, base, false},  {derived, -1, false},  {derived + 1, derived + 1, false}};
  for (const auto& [number, baseNumber, is] : rows)
    EXPECT_EQ(utInstanceOf(number, baseNumber), is) << number << " of " << baseNumber;
}

TEST(LastError, IsNullBeforeTheFirstAndWhereItWasCleared) {
  std::jthread([] {  // which has raised none
    EXPECT_EQ(test::lastError().identifier, nullptr);
    EXPECT_EQ(test::lastError().text, nullptr);
    test::identifierRaisedBy([] { vxErrMsg(17); });
    EXPECT_STREQ(test::lastError().identifier, "VORTIL:host:NumberToText");
    vghost::clearLastError();
    EXPECT_EQ(test::lastError().identifier, nullptr);
    EXPECT_EQ(test::lastError().text, nullptr);
  });
}

}  // namespace
