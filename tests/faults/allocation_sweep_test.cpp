// Every allocation of start-up and of the conversions fails once, and from then on.

#include "shaped_arrays/Catalogue.h"
#include "support/ChildProcess.h"
#include "support/FailingNew.h"

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/exceptions.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

#include <cctype>
#include <iterator>
#include <new>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using vcos::ArrayOwner;
using vcos::COSValue;
using vghost::faults::Repeat;

/// Something that can be counted and told to fail.
struct Allocator {
  const char* name;
  std::uint64_t (*count)();
  void (*fail)(std::uint64_t nth, bool fromThenOn);
  void (*heal)();
};

constexpr Allocator kAllocators[] = {
    {"operator new", [] { return test::newCount(); }, test::failNew, test::failNoNew},
    {"host allocation", [] { return vghost::faults::allocationCount(); },
     [](std::uint64_t nth, bool fromThenOn) {
       vghost::faults::failAllocation(nth, fromThenOn ? Repeat::FromThenOn : Repeat::Once);
     },
     [] { vghost::faults::disarm(); }},
};

/// What a conversion may meet: the allocations, and the host's refusals.
constexpr Allocator kObstacles[] = {
    kAllocators[0],
    kAllocators[1],
    {"host call", [] { return vghost::faults::hostCallCount(); },
     [](std::uint64_t nth, bool fromThenOn) {
       vghost::faults::failHostCall(nth, fromThenOn ? Repeat::FromThenOn : Repeat::Once);
     },
     [] { vghost::faults::disarm(); }},
};

enum class Outcome { Succeeded, OutOfMemory, HostError };

template <class Work>
Outcome outcomeOf(Work&& work) {
  try {
    work();
    return Outcome::Succeeded;
  } catch (const std::bad_alloc&) {
    return Outcome::OutOfMemory;
  } catch (const vcos::COSOutOfMemoryException&) {
    return Outcome::OutOfMemory;
  } catch (const Lindgrove::System::OutOfMemoryException_DEPRECATED&) {
    return Outcome::OutOfMemory;
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    return Outcome::HostError;
  }
}

/// Runs `work` with its first, second, ... allocation failing, until it makes no more of them;
/// returns how many failed.
template <class Attempt>
std::uint64_t sweep(const Allocator& allocator, bool fromThenOn, Attempt&& attempt) {
  constexpr std::uint64_t kFarTooMany = 5000;
  for (std::uint64_t nth = 1; nth < kFarTooMany; ++nth) {
    SCOPED_TRACE(testing::Message() << allocator.name << " number " << nth
                                    << (fromThenOn ? " and all later ones" : ""));
    const std::uint64_t before = allocator.count();
    allocator.fail(nth, fromThenOn);
    attempt(allocator);
    allocator.heal();
    if (allocator.count() - before < nth) return nth - 1;
  }
  ADD_FAILURE() << "the work never ends";
  return kFarTooMany;
}

/// One allocation of start-up has failed with `outcome`, or it and all later ones.
void expectCleanFailure(Outcome outcome, bool fromThenOn) {
  std::size_t complete = 0;
  std::size_t missing = 0;
  const std::vector<std::string> names = test::stampedTypes();
  for (const std::string& name : names) {
    const int steps = test::registrationSteps(name);
    complete += steps == 3;
    missing += steps == 0;
  }
  const std::size_t all = names.size();
  if (outcome == Outcome::OutOfMemory) {
    EXPECT_GE(complete + missing, all - 1) << "more than one type is registered in part";
    return;
  }
  // The memory of a package failed: nothing is said of the stamped types that are missing, but
  // on_off says something.
  EXPECT_EQ(outcome, fromThenOn ? Outcome::HostError : Outcome::Succeeded);
  EXPECT_EQ(complete, fromThenOn ? 0 : all - 1);
  EXPECT_EQ(missing, fromThenOn ? all : 1);
}

TEST(AllocationSweep, StartUpFailsCleanlyAtEveryAllocation) {
  // Start-up works once in a process, so each attempt has one of its own. All types do the same, so
  // those after the first few are met by a stride that comes to each of their steps.
  constexpr std::uint64_t kAllUpTo = 150;
  constexpr std::uint64_t kStride = 7;
  for (const Allocator& allocator : kAllocators) {
    std::uint64_t allocations = 0;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    test::inChildProcess([&] {
      const std::uint64_t before = allocator.count();
      VLInitialize_vgdatatypes();
      allocations = allocator.count() - before;
      ASSERT_EQ(write(ends[1], &allocations, sizeof allocations), ssize_t{sizeof allocations});
    });
    ASSERT_EQ(read(ends[0], &allocations, sizeof allocations), ssize_t{sizeof allocations});
    ASSERT_GT(allocations, 0U);
    for (const bool fromThenOn : {false, true}) {
      for (std::uint64_t nth = 1; nth <= allocations; nth += nth < kAllUpTo ? 1 : kStride) {
        SCOPED_TRACE(testing::Message() << allocator.name << " number " << nth
                                        << (fromThenOn ? " and all later ones" : ""));
        test::inChildProcess([&] {
          allocator.fail(nth, fromThenOn);
          const Outcome outcome = outcomeOf(VLInitialize_vgdatatypes);
          allocator.heal();
          expectCleanFailure(outcome, fromThenOn);
          VLInitialize_vgdatatypes();  // has no effect any more
          expectCleanFailure(outcome, fromThenOn);
        });
      }
    }
  }
}

/// A type with a value to work on. What it holds is on the host's own heap or made beforehand, so
/// that it is no part of a sweep.
struct Subject {
  vcos::TypeAccess access;
  std::string text;
  ArrayOwner array;
  vcos::OwnedValue value;
  int (*numberOf)(COSValue value);

  const vcos::COSDataType& type() const { return access.dataType(); }
};

Subject subjectOf(const std::string& dottedName, std::string text,
                  int (*numberOf)(COSValue value)) {
  const auto access = vcos::TypeAccess::find(vcos::COSNameID(dottedName.c_str())).value();
  ArrayOwner array(vxCreateString(text.c_str()));
  const vcos::COSDataType& type = access.dataType();
  return {access,
          std::move(text),
          std::move(array),
          {type, type.copy(type.getDefaultValue())},
          numberOf};
}

Subject onOff() {
  return subjectOf("vortil.graphics.datatype.on_off", "ON",
                   [](COSValue value) { return value.asLogical() ? 1 : 0; });
}

Subject subjectOf(const test::EnumeratedType& type) {
  std::string text = " " + type.names.back().first + " ";
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return subjectOf(type.dottedName(), text, [](COSValue value) {
    return value.asPointer<const graphics::datatype::EnumBase>()->getIntValue();
  });
}

Subject subjectOf(const test::ShapedType& type) {
  const auto access = vcos::TypeAccess::find(vcos::COSNameID(type.dottedName().c_str())).value();
  ArrayOwner array = type.sampleArray();
  const COSValue value = access.fromArray(array.get());
  return {access, type.sampleText, std::move(array), {access.dataType(), value}, [](COSValue word) {
            const vxArray* held = word.asPointer<graphics::datatype::ArrayBase>()->getPtr();
            return held ? static_cast<int>(1 + vxGetNumberOfElements(held)) : 0;
          }};
}

/// What a conversion gave; 0 is what none gives.
using Result = std::size_t;

Result resultOf(const Subject& subject, COSValue value) {
  const vcos::OwnedValue owner(subject.type(), value);
  return static_cast<Result>(100 + subject.numberOf(value));
}
Result resultOf(const std::string& text) {
  return std::hash<std::string>()(text);
}

struct Conversion {
  const char* name;
  Result (*run)(const Subject& subject);
  /// Whether each of kObstacles is met, by on_off, an enumerated type and a shaped array type.
  bool onOff[std::size(kObstacles)];
  bool enumerated[std::size(kObstacles)];
  bool shaped[std::size(kObstacles)];
};

constexpr Conversion kConversions[] = {
    {"text to value",
     [](const Subject& s) { return resultOf(s, s.access.fromText(s.text.c_str())); },
     {false, true, false},
     {false, true, false},
     {false, true, true}},
    {"array to value",
     [](const Subject& s) { return resultOf(s, s.access.fromArray(s.array.get())); },
     {false, false, true},
     {false, true, true},
     {false, true, true}},
    {"value to text",
     [](const Subject& s) { return resultOf(*s.access.toText(s.value.get())); },
     {false, false, false},
     {false, true, false},
     {true, true, true}},
    {"value to array",
     [](const Subject& s) {
       const ArrayOwner array = s.access.toArray(s.value.get());
       const bool isText = vxGetClassID(array.get()) == vxCHAR_CLASS;
       return isText ? resultOf(vxArrayToStdString(array.get()))
                     : vxGetNumberOfElements(array.get());
     },
     {false, true, true},
     {false, true, true},
     {false, true, true}},
    {"possible values",
     [](const Subject& s) {
       Result result = 0;
       for (auto values = s.type().getPossibleValues(); values.hasMoreElements();)
         result = 31 * result + resultOf(s, values.nextElement());
       return result;
     },
     {true, true, false},
     {true, true, false},
     {false, false, false}},
    {"copy",
     [](const Subject& s) { return resultOf(s, s.type().copy(s.value.get())); },
     {false, false, false},
     {false, true, false},
     {false, true, true}},
};

/// Fails every allocation of a conversion.
void expectCleanFailures(const Subject& subject, const Conversion& conversion,
                         const bool (&allocates)[std::size(kObstacles)]) {
  SCOPED_TRACE(testing::Message() << subject.type().getName() << ", " << conversion.name);
  const Result expected = conversion.run(subject);
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  for (std::size_t i = 0; i < std::size(kObstacles); ++i) {
    for (const bool fromThenOn : {false, true}) {
      const std::uint64_t failures = sweep(kObstacles[i], fromThenOn, [&](const auto& allocator) {
        Result result = 0;
        const Outcome outcome = outcomeOf([&] { result = conversion.run(subject); });
        allocator.heal();
        EXPECT_EQ(result, outcome == Outcome::Succeeded ? expected : 0);
        EXPECT_EQ(conversion.run(subject), expected) << "after the failure";
        EXPECT_EQ(vghost::liveArrays(), arrays);
        EXPECT_EQ(vghost::liveBlocks(), blocks);
      });
      EXPECT_EQ(failures > 0, allocates[i]) << kObstacles[i].name;
    }
  }
}

TEST(AllocationSweep, ConversionsFailCleanlyAtEveryAllocation) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    for (const Conversion& conversion : kConversions) {
      expectCleanFailures(onOff(), conversion, conversion.onOff);
      for (const test::EnumeratedType& type : test::kEnumeratedTypes)
        expectCleanFailures(subjectOf(type), conversion, conversion.enumerated);
      for (const test::ShapedType& type : test::kShapedTypes)
        // A text without numbers, which is all that one type can read, meets less.
        if (std::string_view(type.sampleText) != "[]" || &conversion != &kConversions[0])
          expectCleanFailures(subjectOf(type), conversion, conversion.shaped);
    }
  });
}

TEST(AllocationSweep, TheFirstArrayOfAValueMayFailAndIsMadeAtTheNextCall) {
  const auto expectNames = [](const vcos::COSTypeConversion& conversion, const Allocator& allocator,
                              std::uint64_t nth, COSValue first, COSValue second,
                              std::string_view names) {
    const auto nameOf = [&](COSValue value) {
      return vxArrayToStdString(ArrayOwner(conversion.to(value).asPointer<vxArray>()).get());
    };
    allocator.fail(nth, false);
    static_cast<void>(outcomeOf([&] { nameOf(second); }));
    allocator.heal();
    EXPECT_EQ(nameOf(first) + " " + nameOf(second), names);
  };
  for (const Allocator& allocator : kAllocators) {
    for (std::uint64_t nth = 1; nth <= 8; ++nth) {
      test::inChildProcess([&] {
        using namespace graphics::datatype;
        VLInitialize_vgdatatypes();
        expectNames(OnOffBooleanVC(), allocator, nth, COSValue::fromLogical(true),
                    COSValue::fromLogical(false), "on off");
        const LineStyle solid;
        const LineStyle dashed(LineStyle::kDashed);
        expectNames(
            LineStyleVC(dynamic_cast<const LineStyleDataType&>(*LineStyleDataType::getType())),
            allocator, nth, COSValue::fromPointer(&solid), COSValue::fromPointer(&dashed), "- --");
      });
    }
  }
}

TEST(AllocationSweep, TheDefaultMayFailAndIsMadeAtTheNextCall) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    for (const std::string& name : test::stampedTypes()) {
      const auto* type =
          vcos::COSTypeRepository::getType(vcos::COSNameID(name.c_str())).getObject();
      vghost::faults::failAllocation(1, Repeat::Once);
      EXPECT_EQ(outcomeOf([type] { type->getDefaultValue(); }), Outcome::OutOfMemory);
      EXPECT_FALSE(type->getDefaultValue().isNull());
      EXPECT_EQ(type->getDefaultValue(), type->getDefaultValue());
    }
  });
}

TEST(AllocationSweep, ATableThatCouldNotBeMadeIsMadeInFullLater) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    // The names of a type are copied when it is first asked for one, in two blocks.
    const vcos::COSNameID name("vortil.graphics.datatype.AutoManual");
    const auto type = vcos::TypeAccess::find(name).value();
    for (const std::uint64_t nth : {1, 2}) {
      test::failNew(nth);
      EXPECT_THROW(type.fromText("manual"), vcos::COSOutOfMemoryException);
    }
    const vcos::OwnedValue value(type.dataType(), type.fromText("manual"));
    EXPECT_EQ(type.toText(value.get()), "manual");
    for (const Allocator& allocator : kAllocators) {
      sweep(allocator, false, [](const Allocator& failing) {
        const auto makeTable = [] {
          graphics::datatype::EnumStringType table("Sweep");
          table.addEnumValue("one", 1);
          table.addEnumValue("two", 2);
          return table.getEnumValue("t");
        };
        static_cast<void>(outcomeOf(makeTable));
        failing.heal();
        EXPECT_EQ(makeTable(), COSValue::fromInteger(2));
      });
    }
  });
}

TEST(AllocationSweep, PossibleValuesWithoutMemoryAreAnErrorOfTheClassSystem) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    const Subject subjects[] = {onOff(), subjectOf(test::kEnumeratedTypes.front())};
    for (const Subject& subject : subjects) {
      for (const Allocator& allocator : kAllocators) {
        allocator.fail(1, false);
        EXPECT_THROW(subject.type().getPossibleValues(), vcos::COSOutOfMemoryException);
        allocator.heal();
      }
    }
  });
}

/// What some work takes, and leaves behind.
struct Cost {
  std::uint64_t news, hostAllocations;
  std::size_t blocks, arrays;

  friend bool operator==(const Cost&, const Cost&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Cost& cost) {
    return out << cost.news << " new, " << cost.hostAllocations << " host allocations, "
               << cost.blocks << " blocks and " << cost.arrays << " arrays stay";
  }
};

template <class Work>
Cost costOf(Work&& work) {
  const auto now = [] {
    return Cost{test::newCount(), vghost::faults::allocationCount(), vghost::liveBlocks(),
                vghost::liveArrays()};
  };
  const Cost before = now();
  work();
  const Cost after = now();
  return {after.news - before.news, after.hostAllocations - before.hostAllocations,
          after.blocks - before.blocks, after.arrays - before.arrays};
}

void expectLeanConversions(const Subject& subject) {
  const vcos::COSTypeConversion& texts = *subject.access.textConversion();
  const vcos::COSTypeConversion& arrays = *subject.access.arrayConversion();
  // A type keeps its names from the first question on, and the first array of each.
  static_cast<void>(subject.access.toArray(subject.value.get()));
  subject.type().destroy(texts.from(COSValue::fromPointer(subject.text.c_str())));
  COSValue value;
  COSValue text;
  COSValue array;
  COSValue second;
  const std::size_t blocks = vghost::liveBlocks();
  const std::size_t liveArrays = vghost::liveArrays();
  EXPECT_EQ(costOf([&] { value = texts.from(COSValue::fromPointer(subject.text.c_str())); }),
            (Cost{0, 1, 1, 0}));
  EXPECT_EQ(costOf([&] { text = texts.to(value); }), (Cost{0, 1, 1, 0}));
  // The header; the characters are shared.
  EXPECT_EQ(costOf([&] { array = arrays.to(subject.value.get()); }), (Cost{0, 1, 0, 1}));
  // The value, and the text in between.
  EXPECT_EQ(costOf([&] { second = arrays.from(COSValue::fromPointer(subject.array.get())); }),
            (Cost{0, 2, 1, 0}));
  subject.type().destroy(value);
  subject.type().destroy(second);
  utFree(text.asPointer<char>());
  vxDestroyArray(array.asPointer<vxArray>());
  EXPECT_EQ(vghost::liveBlocks(), blocks);
  EXPECT_EQ(vghost::liveArrays(), liveArrays);
}

TEST(AllocationCount, ConversionsOfEnumeratedTypesAllocateNothingButTheirResults) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    for (const test::EnumeratedType& type : test::kEnumeratedTypes) {
      SCOPED_TRACE(type.name);
      expectLeanConversions(subjectOf(type));
    }
  });
}

TEST(AllocationCount, ShapedValuesCostTheSameWhateverTheirSize) {
  test::inChildProcess([] {
    VLInitialize_vgdatatypes();
    const auto expectLean = [](const std::string& dottedName, const ArrayOwner& given) {
      SCOPED_TRACE(dottedName);
      const auto access = vcos::TypeAccess::find(vcos::COSNameID(dottedName.c_str())).value();
      const vcos::COSDataType& type = access.dataType();
      COSValue value;
      COSValue copy;
      ArrayOwner back;
      // The value, and the header of its array.
      EXPECT_EQ(costOf([&] { value = access.fromArray(given.get()); }), (Cost{0, 2, 1, 1}));
      EXPECT_EQ(costOf([&] { copy = type.copy(value); }), (Cost{0, 2, 1, 1}));
      EXPECT_EQ(costOf([&] { back = access.toArray(copy); }), (Cost{0, 1, 0, 1}));
      type.destroy(value);
      type.destroy(copy);
    };
    for (const test::ShapedType& type : test::kShapedTypes)
      expectLean(type.dottedName(), type.sampleArray());
    const char* large[][2] = {{"ColorMap", "400000x3 double"},
                              {"ColorMap", "400000x3 uint8"},
                              {"PatchFaces", "1000000x1 single"},
                              {"PrimitiveStripData", "1x1000000 uint32"}};
    for (const auto& [name, words] : large)
      expectLean(std::string("vortil.graphics.datatype.") + name, test::array(words));
  });
}

}  // namespace
