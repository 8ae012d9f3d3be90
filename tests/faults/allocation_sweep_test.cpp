// Every allocation and host call of the conversions fails once, and from then on.

#include "faults/Obstacles.h"
#include "references/Samples.h"
#include "registry/RegisteredTypes.h"
#include "support/ChildProcess.h"
#include "support/Outcomes.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/EnumStringType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <sv/features.h>
#include <ut/memory.h>
#include <vcos/COSPackage.h>
#include <vcos/TypeAccess.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace test;
using vcos::copyValue;
using vcos::COSValue;
using vcos::OwnedValue;

/// A type with a value to work on.
struct Subject {
  explicit Subject(const RegisteredType& ownRow) : row(ownRow) {}

  const RegisteredType& row;
  const vcos::TypeAccess access = accessOf(row.name);
  const vcos::COSDataType& type = access.dataType();
  const ArrayOwner array = row.array();
  const OwnedValue value{type, access.fromArray(array.get())};
};

/// What some work with a type gave.
struct Product {
  std::optional<std::string> text = {};
  ArrayOwner array = {};
  COSValue value = {};
  vcos::Enumeration<COSValue> list = {};
};

/// Ends the product.
std::string describe(const Subject& subject, Product product) {
  std::string words = product.text.value_or("");
  if (product.array)
    words += vxGetClassName(product.array.get()) +
             testing::PrintToString(sizeOf(product.array.get())) +
             testing::PrintToString(numbersOf(product.array.get()));
  const OwnedValue value(subject.type, product.value);
  if (!product.value.isNull())
    words += describe(subject, {textOrError(subject.access, product.value),
                                subject.access.toArray(product.value)});
  while (product.list.hasMoreElements())
    words += describe(subject, {.value = product.list.nextElement()});
  return words;
}

struct Work {
  const char* name;
  const char* Obstacles::*meets;
  Product (*run)(const Subject& subject);
};

constexpr Work kWorks[] = {
    {"text to value", &Obstacles::textToValue,
     [](const Subject& s) { return Product{.value = s.access.fromText(s.row.text.c_str())}; }},
    {"array to value", &Obstacles::arrayToValue,
     [](const Subject& s) { return Product{.value = s.access.fromArray(s.array.get())}; }},
    {"value to text", &Obstacles::valueToText,
     [](const Subject& s) { return Product{.text = s.access.toText(s.value.get())}; }},
    {"value to array", &Obstacles::valueToArray,
     [](const Subject& s) { return Product{.array = s.access.toArray(s.value.get())}; }},
    {"possible values", &Obstacles::possibleValues,
     [](const Subject& s) { return Product{.list = s.type.getPossibleValues()}; }},
    {"copy", &Obstacles::copy,
     [](const Subject& s) { return Product{.value = copyValue(s.type, s.value.get())}; }},
};

/// Whether the work meets such obstacles.
bool meets(const Subject& subject, const Work& work, const Obstacle& obstacle, bool fromThenOn) {
  const std::string expected = describe(subject, work.run(subject));
  const auto met = sweep(obstacle, fromThenOn, [&](const auto& meet) {
    std::optional<Product> product;
    const Outcome outcome = meet([&] { product.emplace(work.run(subject)); });
    const std::string given = product ? describe(subject, *std::exchange(product, {})) : expected;
    EXPECT_EQ(given, expected);
    EXPECT_TRUE(work.meets != &Obstacles::possibleValues || outcome == Outcome::kSucceeded ||
                outcome == Outcome::kClassSystemOutOfMemory);
    EXPECT_EQ(describe(subject, work.run(subject)), expected) << "after the failure";
  });
  return met > 0;
}

/// The types, some of them once more with arrays that go another road.
std::vector<RegisteredType> subjects() {
  const auto cells = [](const char* first, vxArray* second) {
    ArrayOwner array = zeros(kCell, {1, 2});
    vxSetCell(array.get(), 0, vxCreateString(first));
    vxSetCell(array.get(), 1, second);
    return array;
  };
  std::vector<RegisteredType> rows = registeredTypes();
  const auto add = [&rows](const char* name, const Obstacles& obstacles, const auto& array) {
    RegisteredType row = *std::ranges::find(rows, name, &RegisteredType::name);
    row.array = array;
    row.obstacles = obstacles;
    rows.push_back(row);
  };
  add("NumericOrString", {"ac", "nac", "", "ac", "", "ac"},
      [=] { return cells("a\nb", test::array("1x2 int8 1 22").release()); });
  add("Callback", {"ac", "ac", "", "ac", "", "a"},
      [=] { return cells("move", scalar(1).release()); });
  add("NLineStyles", {"nac", "nc", "", "ac", "", "n"},
      [=] { return cells("square--", vxCreateString(":")); });
  add("NLineStyles", {"nac", "nac", "", "nac", "", "n"}, [] { return array("2x1x2 char 45"); });
  return rows;
}

TEST(Sweep, ConversionsFailCleanlyAtEveryAllocationAndHostCall) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    for (const RegisteredType& row : subjects()) {
      const Subject subject(row);
      for (const Work& work : kWorks) {
        const bool isOfText = std::string_view(work.name).find("text") != std::string_view::npos;
        if (isOfText && !row.takesText()) continue;
        SCOPED_TRACE(row.name + ", " + work.name);
        const std::string_view expected = row.obstacles.*work.meets;
        for (const Obstacle& obstacle : kObstacles) {
          if (obstacle.letter == 's') continue;  // stands in the same places as 'c'
          for (const bool fromThenOn : {false, true})
            EXPECT_EQ(meets(subject, work, obstacle, fromThenOn),
                      expected.find(obstacle.letter) != expected.npos)
                << obstacle.name;
        }
      }
    }
  });
}

/// The names that two texts stand for, by way of values and their arrays.
std::string namesOf(const vcos::TypeAccess& access, const char* first, const char* second) {
  std::string names;
  for (const char* text : {first, second}) {
    const OwnedValue value(access.dataType(), access.fromText(text));
    names += vxArrayToStdString(access.toArray(value.get()).get()) + ",";
  }
  return names;
}

std::string valuesInATable() {
  graphics::datatype::EnumStringType table("Sweep");
  table.addEnumValue("one", 1);
  table.addEnumValue("two", 2);
  return std::to_string(table.getEnumValue("t").asInteger<int>());
}

std::string classesThatNoPackageKnows() {
  std::string names;
  for (const auto* each : sample::classes()) {
    const std::string name = each->getName();
    const COSNameID package(name.substr(0, name.rfind('.')).c_str());
    if (vcos::COSPackage::getPackage(package)->getClass(each->getNameID()) != each) names += name;
  }
  return names;
}

TEST(Sweep, WhatIsKeptFromItsFirstUseOnMayFailThereAndIsMadeAtTheNext) {
  for (const Obstacle& obstacle : kObstacles) {
    for (std::uint64_t nth = 1; nth < 2000; nth += nth < 30 ? 1 : 41) {
      inChildProcess([&] {
        VLInitialize_vgdatatypes();
        svRegisterFeature("VORTILUsingSingleGraphics", 1, nullptr, nullptr);
        const auto expectAtTheNext = [&](std::string_view words, const auto& work) {
          obstacle.fail(nth, false);
          static_cast<void>(outcomeOf(work));
          obstacle.heal();
          EXPECT_EQ(work(), words) << obstacle.name << " number " << nth;
        };
        const auto onOff = accessOf("on_off");
        expectAtTheNext("off,on,", [&] { return namesOf(onOff, "off", "on"); });
        const auto style = accessOf("LineStyle");
        expectAtTheNext("--,-,", [&] { return namesOf(style, "--", "-"); });
        expectAtTheNext("2", valuesInATable);
        expectAtTheNext("none,none,", [] { return namesOf(accessOf("RGBAColor"), "none", "N"); });
        expectAtTheNext("flat,flat,", [] { return namesOf(accessOf("MeshAlpha"), "flat", "F"); });
        expectAtTheNext("", classesThatNoPackageKnows);
        const COSInterfacePtr root = sampleObject("Root");
        expectAtTheNext("root", [&]() -> std::string {
          return numberOf(root) == 0 && objectOf(0) == root.get() ? "root" : "another";
        });
      });
    }
  }
}

TEST(Sweep, NamesAndDefaultsSayThatMemoryHasRunOut) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    // The names of a type are copied when it is first asked for one, in two blocks.
    const vcos::TypeAccess names = accessOf("AutoManual");
    for (const std::uint64_t nth : {1U, 2U}) {
      failNew(nth);
      EXPECT_THROW(names.fromText("manual"), vcos::COSOutOfMemoryException);
    }
    for (const RegisteredType& row : registeredTypes()) {
      if (row.isDefaultNull) continue;
      const vcos::COSDataType& type = accessOf(row.name).dataType();
      vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
      failNew(1, true);
      const Outcome outcome = outcomeOf([&] { type.getDefaultValue(); });
      failNoNew();
      EXPECT_TRUE(outcome == Outcome::kOutOfMemory || outcome == Outcome::kClassSystemOutOfMemory);
      EXPECT_FALSE(type.getDefaultValue().isNull());
    }
  });
}

/// What some work takes from operator new and from the host, and the blocks and arrays of the host
/// that it leaves behind.
using Cost = std::array<std::uint64_t, 4>;

template <class Work>
Cost costOf(Work&& work) {
  const auto now = [] {
    return Cost{newCount(), vghost::faults::allocationCount(), vghost::liveBlocks(),
                vghost::liveArrays()};
  };
  Cost cost = now();
  work();
  for (std::size_t i = 0; i < cost.size(); ++i)
    cost[i] = now()[i] - cost[i];
  return cost;
}

/// What the conversions of a type cost; a text only where one is given.
void expectCosts(const vcos::TypeAccess& access, const vxArray* given, const char* text, Cost value,
                 Cost copied) {
  const vcos::COSDataType& type = access.dataType();
  const vcos::COSTypeConversion& texts = *access.textConversion();
  type.destroy(access.fromArray(given));  // names are kept from the first question on
  COSValue words[4];
  ArrayOwner array;
  EXPECT_EQ(costOf([&] { words[0] = access.fromArray(given); }), value);
  EXPECT_EQ(costOf([&] { words[1] = type.copy(words[0]); }), copied);
  static_cast<void>(access.toArray(words[1]));  // the first array of a name is kept
  // The header; the elements are shared.
  EXPECT_EQ(costOf([&] { array = access.toArray(words[1]); }), (Cost{0, 1, 0, 1}));
  if (text) {
    EXPECT_EQ(costOf([&] { words[2] = texts.from(COSValue::fromPointer(text)); }),
              (Cost{0, 1, 1, 0}));
    EXPECT_EQ(costOf([&] { words[3] = texts.to(words[2]); }), (Cost{0, 1, 1, 0}));
    utFree(words[3].asPointer<char>());
  }
  for (int i = 0; i < 3; ++i)
    type.destroy(words[i]);
}

TEST(AllocationCount, ConversionsAllocateNothingButTheirResultsWhateverTheirSize) {
  inChildProcess([] {
    VLInitialize_vgdatatypes();
    constexpr Cost kText{0, 2, 1, 0};  // the value, and the text in between
    constexpr Cost kName{0, 1, 1, 0};
    constexpr Cost kArray{0, 2, 1, 1};  // the value, and the header of its array
    for (const RegisteredType& row : registeredTypes()) {
      SCOPED_TRACE(row.name);
      const ArrayOwner given = row.array();
      if (row.family == Family::kEnumerated)
        expectCosts(accessOf(row.name), given.get(), row.text.c_str(), kText, kName);
      if (row.family == Family::kShaped)
        expectCosts(accessOf(row.name), given.get(), nullptr, kArray, kArray);
    }
    const auto color = accessOf("RGBAColor");
    const auto make = [&color](const char* text) {
      color.dataType().destroy(color.textConversion()->from(COSValue::fromPointer(text)));
    };
    make("none");  // and the tables of names
    for (const char* text : {"red", "r", "none", "[0.1 0.2 0.3]"})
      EXPECT_EQ(costOf([&] { make(text); }), (Cost{0, 1, 0, 0})) << text;
    const auto& names = *graphics::datatype::ColorNameTable::getInstance();
    EXPECT_EQ(costOf([&] { names.getColorValue("DefaultAxesBoxColor"); }), Cost{});
    const char* large[][2] = {{"ColorMap", "400000x3 double"},
                              {"ColorMap", "400000x3 uint8"},
                              {"PatchFaces", "1000000x1 single"},
                              {"PrimitiveStripData", "1x1000000 uint32"},
                              {"TextString", "1000x1000 char"}};
    for (const auto& [name, words] : large)
      expectCosts(accessOf(name), test::array(words).get(), nullptr, kArray, kArray);
    constexpr Cost kNormalized{0, 3, 1, 1};  // a header more, for the array before it is tested
    expectCosts(accessOf("NumericOrString"), test::array("1x1000000 char").get(), nullptr,
                kNormalized, kArray);
  });
}

}  // namespace
