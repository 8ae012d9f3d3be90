// What objects do meets each of its allocations and host calls failing, once and from then on.

#include "faults/Obstacles.h"
#include "references/Samples.h"
#include "support/ChildProcess.h"

#include <handles/handle_table.h>
#include <sv/features.h>
#include <ut/memory.h>
#include <vcos/COSPackage.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace {

using namespace test;
using vcos::OwnedValue;

/// Runs the work on a scene of its own for the first, the second, ... obstacle in its way until it
/// meets no more; `check` is told whether it succeeded. Returns how many it met.
template <class Make, class Run, class Check>
std::uint64_t sweep(Make&& make, Run&& run, Check&& check) {
  std::uint64_t met = 0;
  for (const Obstacle& obstacle : kObstacles) {
    for (const bool fromThenOn : {false, true}) {
      bool isOver = false;
      for (std::uint64_t nth = 1; !isOver; ++nth) {
        SCOPED_TRACE(testing::Message() << obstacle.name << " number " << nth << fromThenOn);
        const std::size_t arrays = vghost::liveArrays();
        const std::size_t blocks = vghost::liveBlocks();
        {
          auto scene = make();
          const std::uint64_t before = obstacle.count();
          obstacle.fail(nth, fromThenOn);
          const Outcome outcome = outcomeOf([&] { run(scene); });
          isOver = obstacle.count() - before < nth;
          obstacle.heal();
          EXPECT_EQ(outcome == Outcome::kSucceeded, isOver);
          check(scene, isOver);
        }
        EXPECT_EQ(vghost::liveArrays(), arrays);
        EXPECT_EQ(vghost::liveBlocks(), blocks);
        met += isOver ? 0 : 1;
      }
    }
  }
  return met;
}

void sweepSet(const char* className, const char* name,
              const std::function<void(vcos::COSPropInfo&, COSInterface*)>& set) {
  SCOPED_TRACE(std::string(className) + "." + name);
  vcos::COSPropInfo& property = propertyOf(sampleObject(className), name);
  const vcos::COSDataType& type = property.getTypeAccess().dataType();
  const auto make = [&] { return sampleObject(className); };
  const auto copyOf = [&](const COSInterfacePtr& object) {
    return type.copy(property.getValue(object.get()));
  };
  const OwnedValue old(type, copyOf(make()));
  const COSInterfacePtr changed = make();
  set(property, changed.get());
  const OwnedValue expected(type, copyOf(changed));
  EXPECT_FALSE(type.isEqual(old.get(), expected.get()));
  EXPECT_GT(sweep(
                make, [&](const auto& object) { set(property, object.get()); },
                [&](const COSInterfacePtr& object, bool isSet) {
                  const COSValue value = property.getValue(object.get());
                  EXPECT_TRUE(type.isEqual(value, (isSet ? expected : old).get()));
                  set(property, object.get());
                  const COSValue now = property.getValue(object.get());
                  EXPECT_TRUE(type.isEqual(now, expected.get()));
                }),
            5U);
  ArrayOwner array;
  const auto get = [&](auto&) {
    array = property.getTypeAccess().toArray(property.getValue(changed.get()));
  };
  get(old);  // names are kept from the first question on
  array.reset();
  sweep(make, get, [&](auto&, bool) { array.reset(); });
  sweep(
      make, [&](const COSInterfacePtr& object) { vcos::COSClass::destroyObject(object); },
      [&](const COSInterfacePtr& object, bool) { EXPECT_TRUE(object->isDestroyed()); });
}

TEST(ObjectSweep, AFailingSetLeavesTheOldValueAndAFailingGetNothing) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    const COSInterfacePtr line = sampleObject("Line");
    const double number = numberOf(line);
    const std::pair<const char*, std::pair<const char*, const char*>> texts[] = {
        {"LinePrimitive", {"Color", "red"}},  {"LinePrimitive", {"LineStyle", "--"}},
        {"MarkerPrimitive", {"Style", "^"}},  {"TextPrimitive", {"Color", "[0.5 1 0]"}},
        {"TextPrimitive", {"String", "two"}}, {"Figure", {"Tag", "a tag"}},
        {"Axes", {"YLimits", "[2 5]"}}};
    for (const auto& [className, row] : texts)
      sweepSet(className, row.first, [text = row.second](auto& property, auto* object) {
        property.setFromText(object, text);
      });
    const ArrayOwner one = scalar(number);
    const ArrayOwner reference(omCreateVCOSScalar(line));
    const ArrayOwner lines = array("1x3 char", {'a', '\n', 'b'});
    const std::tuple<const char*, const char*, const vxArray*> arrays[] = {
        {"TextPrimitive", "String", lines.get()},     {"Figure", "CurrentObject", one.get()},
        {"Figure", "CurrentObject", reference.get()}, {"Root", "FigureInFront", one.get()},
        {"Root", "FigureInFront", reference.get()},   {"Figure", "Peer", lines.get()}};
    for (const auto& [className, name, given] : arrays)
      sweepSet(className, name, [array = given](auto& property, auto* object) {
        property.setFromArray(object, array);
      });
    graphics::datatype::vcos_destroy_handle(number);
  });
}

TEST(ObjectSweep, ObjectsAndNumbersAreMadeOrNot) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    for (const char* className : {"Figure", "Line"}) {
      const COSInterfacePtr object = sampleObject(className);
      sweep([] { return COSInterfacePtr(); }, [&](auto& made) { made = sampleObject(className); },
            [](const auto& made, bool isMade) { EXPECT_EQ(made.get() != nullptr, isMade); });
      EXPECT_GT(sweep([] { return -1.0; }, [&](double& number) { number = numberOf(object); },
                      [&](double number, bool isMade) {
                        EXPECT_EQ(objectOf(number), isMade ? object.get() : nullptr);
                        graphics::datatype::vcos_destroy_handle(number);
                      }),
                1U);
      sweep([&] { return numberOf(object); }, [](double number) { objectOf(number); },
            [&](double number, bool) {
              EXPECT_EQ(objectOf(number), object.get());
              graphics::datatype::vcos_destroy_handle(number);
            });
    }
  });
}

/// In a process for each obstacle: what is kept from its first use on is made at the next.
TEST(ObjectSweep, WhatIsKeptFromItsFirstUseOnMayFailThere) {
  constexpr std::uint64_t kStride = 41;
  for (const Obstacle& obstacle : kObstacles) {
    for (std::uint64_t nth = 1; nth < 2000; nth += nth < 20 ? 1 : kStride) {
      inChildProcess([&] {
        SCOPED_TRACE(testing::Message() << obstacle.name << " number " << nth);
        VLInitialize_vgdatatypes();
        svRegisterFeature("VORTILUsingSingleGraphics", 1, nullptr, nullptr);
        obstacle.fail(nth, false);
        outcomeOf([] { sample::classes(); });
        obstacle.heal();
        for (const auto* each : sample::classes()) {
          const std::string name = each->getName();
          const COSNameID package(name.substr(0, name.rfind('.')).c_str());
          EXPECT_EQ(vcos::COSPackage::getPackage(package)->getClass(each->getNameID()), each);
        }
        if (nth >= 20) return;
        const COSInterfacePtr root = sampleObject("Root");
        obstacle.fail(nth, false);
        outcomeOf([&] { numberOf(root); });
        obstacle.heal();
        EXPECT_EQ(numberOf(root), 0);
        EXPECT_EQ(objectOf(0), root.get());
      });
    }
  }
}

}  // namespace
