// Every allocation of start-up and of the conversions fails once, and from then on.

#include "support/ChildProcess.h"
#include "support/FailingNew.h"

#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/exceptions.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/TypeAccess.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

#include <iterator>
#include <new>
#include <string>

namespace {

using vcos::ArrayOwner;
using vcos::COSValue;
using vghost::faults::Repeat;

/// A kind of allocation that can be counted and told to fail.
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

TEST(AllocationSweep, StartUpFailsCleanlyAtEveryAllocation) {
  // Start-up works once in a process, so each attempt has one of its own.
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
      for (std::uint64_t nth = 1; nth <= allocations; ++nth) {
        SCOPED_TRACE(testing::Message() << allocator.name << " number " << nth);
        test::inChildProcess([&] {
          allocator.fail(nth, fromThenOn);
          const Outcome outcome = outcomeOf(VLInitialize_vgdatatypes);
          allocator.heal();
          EXPECT_NE(outcome, Outcome::Succeeded);
          VLInitialize_vgdatatypes();  // has no effect any more
        });
      }
    }
  }
}

struct Conversion {
  const char* name;
  /// Does the work and returns what it gave, as text.
  std::string (*run)(const vcos::TypeAccess& type);
  /// Whether each of kAllocators is called for it.
  bool allocates[std::size(kAllocators)];
};

const char* textOf(COSValue value) {
  return value.asLogical() ? "true" : "false";
}

/// On the host's own heap, so that making it is no part of the sweep.
const vxArray* onArray() {
  static const vxArray* array = vxCreateString("ON");
  return array;
}

constexpr Conversion kConversions[] = {
    {"text to value",
     [](const auto& type) { return std::string(textOf(type.fromText("ON"))); },
     {false, true}},
    {"array to value",
     [](const auto& type) { return std::string(textOf(type.fromArray(onArray()))); },
     {false, false}},
    {"value to text",
     [](const auto& type) { return *type.toText(COSValue::fromLogical(true)); },
     {false, false}},
    {"value to array",
     [](const auto& type) {
       return vxArrayToStdString(type.toArray(COSValue::fromLogical(true)).get());
     },
     {false, true}},
    {"possible values",
     [](const auto& type) {
       auto values = type.dataType().getPossibleValues();
       return std::string(textOf(values.nextElement())) + textOf(values.nextElement());
     },
     {true, true}},
};

TEST(AllocationSweep, ConversionsOfOnOffFailCleanlyAtEveryAllocation) {
  VLInitialize_vgdatatypes();
  const auto type = vcos::TypeAccess::find(vcos::COSNameID("vortil.graphics.datatype.on_off"));
  ASSERT_TRUE(type);
  for (const Conversion& conversion : kConversions) {
    const std::string expected = [&] {
      onArray();
      return conversion.run(*type);
    }();
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t blocks = vghost::liveBlocks();
    for (std::size_t i = 0; i < std::size(kAllocators); ++i) {
      for (const bool fromThenOn : {false, true}) {
        SCOPED_TRACE(conversion.name);
        const std::uint64_t failures =
            sweep(kAllocators[i], fromThenOn, [&](const auto& allocator) {
              std::string result;
              const Outcome outcome = outcomeOf([&] { result = conversion.run(*type); });
              allocator.heal();
              EXPECT_EQ(result, outcome == Outcome::Succeeded ? expected : "");
              EXPECT_EQ(conversion.run(*type), expected) << "after the failure";
              EXPECT_EQ(vghost::liveArrays(), arrays);
              EXPECT_EQ(vghost::liveBlocks(), blocks);
            });
        EXPECT_EQ(failures > 0, conversion.allocates[i]);
      }
    }
  }
}

TEST(AllocationSweep, TheFirstArrayOfAValueMayFailAndIsMadeAtTheNextCall) {
  for (const Allocator& allocator : kAllocators) {
    for (std::uint64_t nth = 1; nth <= 8; ++nth) {
      test::inChildProcess([&] {
        VLInitialize_vgdatatypes();
        const graphics::datatype::OnOffBooleanVC conversion;
        const auto onOff = [&](bool value) {
          const ArrayOwner array(
              conversion.to(COSValue::fromLogical(value)).template asPointer<vxArray>());
          return vxArrayToStdString(array.get());
        };
        allocator.fail(nth, false);
        static_cast<void>(outcomeOf([&] { onOff(false); }));
        allocator.heal();
        EXPECT_EQ(onOff(true), "on");
        EXPECT_EQ(onOff(false), "off");
      });
    }
  }
}

}  // namespace
