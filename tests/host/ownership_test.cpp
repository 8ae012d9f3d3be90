// Who ends an array or a block of memory, and that nothing is lost when memory fails.

#include "support/Arrays.h"

#include "support/HostError.h"

#include <gmock/gmock.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vx/scopes.h>

#include <functional>
#include <tuple>

namespace {

using namespace test;
using testing::ElementsAre;
using vghost::faults::Repeat;

/// Arrays and blocks that are alive beyond those at the time of its making.
class Survivors {
 public:
  std::size_t arrays() const noexcept { return vghost::liveArrays() - arrays_; }
  std::size_t blocks() const noexcept { return vghost::liveBlocks() - blocks_; }

 private:
  std::size_t arrays_ = vghost::liveArrays();
  std::size_t blocks_ = vghost::liveBlocks();
};

void endContext(vxArrayListContext* context, std::vector<vxArray*> keep = {},
                bool destroyRest = true) {
  vxExitArrayListContext(context, keep.data(), keep.size(), destroyRest);
}

TEST(ArrayListContext, DestroysWhatWasNotDetached) {
  using Make = vxArray* (*)(const vxArray* outside);
  const std::tuple<const char*, Make, bool> rows[] = {
      {"new", [](auto*) { return vxCreateDoubleScalar(1); }, false},
      {"shared copy", [](auto* a) { return vxCreateSharedDataCopy(a); }, false},
      {"transpose", [](auto* a) { return vxTranspose(a); }, false},
      {"copy on no list", [](auto* a) { return vxCreateSharedCopyNotOnArrayList(a); }, true},
  };
  const ArrayOwner outside = counting(kCell, {1, 2});
  for (const auto& [name, make, survives] : rows) {
    const Survivors survivors;
    vxArrayListContext* context = vxEnterNewArrayListContext();
    vxDestroyArray(vxCreateDoubleScalar(0));
    vxArray* array = make(outside.get());
    endContext(context);
    EXPECT_EQ(survivors.arrays() != 0, survives) << name;
    if (survives) vxDestroyArray(array);
    EXPECT_EQ(survivors.arrays(), 0U) << name;
  }
  EXPECT_THAT(numbersOf(outside.get()), ElementsAre(1, 2));
}

TEST(ArrayListContext, MovesKeptArraysOutwardAlsoOverContextsThatAnErrorJumpedOver) {
  for (const bool destroyRest : {true, false}) {
    const Survivors survivors;
    vxArrayListContext* outer = vxEnterNewArrayListContext();
    vxArrayListContext* inner = vxEnterNewArrayListContext();
    vxArray* own = vxCreateDoubleScalar(7);
    static_cast<void>(vxCreateDoubleScalar(8));
    static_cast<void>(vxEnterNewArrayListContext());  // is jumped over
    vxArray* deeper = vxCreateDoubleScalar(9);
    static_cast<void>(vxCreateDoubleScalar(10));
    endContext(inner, {own, deeper}, destroyRest);
    EXPECT_EQ(survivors.arrays(), destroyRest ? 2U : 4U);
    EXPECT_EQ(vxGetScalar(own) + vxGetScalar(deeper), 16);
    endContext(outer);
    EXPECT_EQ(survivors.arrays(), 0U);
  }
}

TEST(ArrayListContext, AnElementOfAnotherArrayIsEndedOnlyWithThatArray) {
  const ArrayOwner cell = zeros(kCell, {1, 2});
  const Survivors survivors;
  vxArrayListContext* context = vxEnterNewArrayListContext();
  put(cell.get(), 0, 1);
  put(cell.get(), 1, 5);
  // The copy on write makes new elements inside the context, too.
  static_cast<void>(vxCreateSharedDataCopy(cell.get()));
  put(cell.get(), 0, 4);
  endContext(context);
  EXPECT_EQ(survivors.arrays(), 2U);
  EXPECT_THAT(numbersOf(cell.get()), ElementsAre(4, 5));
}

TEST(Setters, TakeTheElementOverAlsoWhenTheyFail) {
  const ArrayOwner real = counting(kReal, {1, 2});
  const ArrayOwner cell = counting(kCell, {1, 2});
  const ArrayOwner record = counting(kStruct, {1, 2});
  const std::function<void(vxArray*)> failing[] = {
      [&](vxArray* element) { vxSetCell(cell.get(), 2, element); },
      [&](vxArray* element) { vxSetCell(real.get(), 0, element); },
      [&](vxArray* element) { vxSetFieldByNumber(record.get(), 2, 0, element); },
      [&](vxArray* element) { vxSetFieldByNumber(record.get(), 0, 2, element); },
  };
  for (const auto& fail : failing) {
    const Survivors survivors;
    vxArrayListContext* context = vxEnterNewArrayListContext();
    vxArray* element = vxCreateDoubleScalar(9);
    EXPECT_NE(identifierRaisedBy([&] { fail(element); }), "");
    EXPECT_EQ(survivors.arrays(), 0U) << "row " << &fail - failing;
    endContext(context);
  }
  EXPECT_THAT(numbersOf(cell.get()), ElementsAre(1, 2));
  EXPECT_THAT(numbersOf(record.get()), ElementsAre(1, 2));
}

TEST(AllocListContext, FreesTheBlocksThatAreLeft) {
  const Survivors survivors;
  vxAllocListContext* context = vxEnterNewAllocListContext();
  static_cast<void>(vxMalloc(8));
  vxFree(vxMalloc(8));
  void* onNoList = vxMallocEx(8);
  static_cast<void>(vxEnterNewAllocListContext());  // is jumped over
  EXPECT_NE(vxCalloc(1, 8), nullptr);
  EXPECT_EQ(vxCalloc(SIZE_MAX / 2 + 9, 2), nullptr) << "the product is 16";
  EXPECT_EQ(survivors.blocks(), 3U);
  vxRestorePreviousAllocListContext(context);
  EXPECT_EQ(survivors.blocks(), 1U);
  vxFreeEx(onNoList);
  EXPECT_EQ(survivors.blocks(), 0U);
}

/// Works on the array 1, 2, 3, which shares its elements with a copy.
struct Operation {
  const char* name;
  Kind kind;
  void (*run)(vxArray* array);
  Numbers result = {1, 2, 3};
};

const char* const kTexts[] = {"a", "b"};

const Operation kOperations[] = {
    {"new text", kReal, [](auto*) { vxDestroyArray(vxCreateString("text")); }},
    {"new rows", kReal, [](auto*) { vxDestroyArray(vxCreateCharMatrixFromStrings(2, kTexts)); }},
    {"new struct", kReal, [](auto*) { vxDestroyArray(vxCreateStructMatrix(1, 2, 2, kTexts)); }},
    {"new object", kReal, [](auto*) { vxDestroyArray(omCreateVCOSScalar(numberedObject(1))); }},
    {"copy", kReal, [](auto* a) { vxDestroyArray(vxCreateSharedDataCopy(a)); }},
    {"transpose", kComplex, [](auto* a) { vxDestroyArray(vxTranspose(a)); }},
    {"transpose of cells", kCell, [](auto* a) { vxDestroyArray(vxTranspose(a)); }},
    {"write", kComplex, [](auto* a) { put(a, 0, 9); }, {9, 2, 3}},
    {"write of a cell", kCell, [](auto* a) { put(a, 1, 9); }, {1, 9, 3}},
    {"write of a field", kStruct, [](auto* a) { put(a, 1, 9); }, {1, 9, 3}},
    {"write of an object", kObject, [](auto* a) { put(a, 2, 9); }, {1, 2, 9}},
    {"growing of cells", kCell, [](auto* a) { vxSetN(a, 4); }, {1, 2, 3, 0}},
};

/// Lets the n-th allocation of the operation fail; false if it has not that many.
bool failAt(std::uint64_t nth, Repeat repeat, const Operation& operation) {
  SCOPED_TRACE(testing::Message() << operation.name << ", allocation " << nth);
  const Survivors survivors;
  bool failed = false;
  {
    const ArrayOwner array = counting(operation.kind, {1, 3});
    const ArrayOwner copy = sharedCopy(array);
    const std::uint64_t before = vghost::faults::allocationCount();
    vghost::faults::failAllocation(nth, repeat);
    try {
      operation.run(array.get());
    } catch (const Lindgrove::System::OutOfMemoryException_DEPRECATED&) {
      failed = true;
    }
    vghost::faults::disarm();
    EXPECT_EQ(failed, vghost::faults::allocationCount() - before >= nth);
    EXPECT_EQ(numbersOf(array.get()), failed ? Numbers({1, 2, 3}) : operation.result);
    EXPECT_THAT(numbersOf(copy.get()), ElementsAre(1, 2, 3));
  }
  EXPECT_EQ(survivors.arrays(), 0U);
  EXPECT_EQ(survivors.blocks(), 0U);
  return failed;
}

TEST(FailingMemory, ArraysKeepTheirContentAndNothingIsLost) {
  for (const Operation& operation : kOperations) {
    for (const Repeat repeat : {Repeat::Once, Repeat::FromThenOn}) {
      std::uint64_t failures = 0;
      while (failAt(failures + 1, repeat, operation))
        ++failures;
      EXPECT_GE(failures, 1U) << operation.name;
    }
  }
}

}  // namespace
