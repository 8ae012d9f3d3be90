// The base of the values: shared data copies, equality, and the text form.

#include "support/Arrays.h"
#include "support/GlobalLocale.h"

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/exceptions.h>
#include <graphics/datatype/shaped_types.h>
#include <gtest/gtest.h>
#include <messages/exceptions.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vx/scopes.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace {

using graphics::datatype::ArrayBase;
using test::array;
using test::ArrayOwner;
using test::Numbers;
using test::Size;

/// Compares as the shaped types do.
struct Limited : ArrayBase {
  using ArrayBase::ArrayBase;
  std::size_t getMaxNumberOfValuesToCompare() const override { return 32000; }
};

TEST(ArrayBase, SharesTheElementsOfWhatHasSome) {
  for (const char* words : {"2x3 double", "1x2x3 uint8", "complex 2x2 single", "1x4 char",
                            "3x1 logical", "sparse 2x2 double", "1x2 cell"}) {
    const ArrayOwner given = array(words);
    const ArrayBase value(given.get());
    const ArrayBase copy(value);
    const auto shared = copy.getSharedDataCopy();
    for (const vxArray* held : {value.getPtr(), copy.getPtr(), std::as_const(copy).getPtr(),
                                static_cast<const vxArray*>(shared.get())}) {
      EXPECT_NE(held, given.get());
      EXPECT_EQ(vxGetData(held), vxGetData(given.get())) << words;
      EXPECT_EQ(vxGetImagData(held), vxGetImagData(given.get())) << words;
      EXPECT_EQ(vxGetClassID(held), vxGetClassID(given.get()));
      EXPECT_EQ(test::sizeOf(held), test::sizeOf(given.get()));
      EXPECT_FALSE(vxIsSparse(held)) << words;
    }
  }
}

TEST(ArrayBase, CopiesWhatHasNoElementsByClassAndSize) {
  const std::tuple<const char*, Size, vxClassID> rows[] = {
      {"0x3 double", {0, 3}, vxDOUBLE_CLASS},  {"complex 2x0 single", {2, 0}, vxSINGLE_CLASS},
      {"2x0x4 int8", {2, 0, 4}, vxINT8_CLASS}, {"0 uint16", {0, 0}, vxUINT16_CLASS},
      {"1x0 cell", {1, 0}, vxCELL_CLASS},      {"0x0x1x2 logical", {0, 0, 1, 2}, vxLOGICAL_CLASS},
      {"0x5 char", {0, 0}, vxCHAR_CLASS},      {"sparse 0x2 double", {0, 2}, vxDOUBLE_CLASS},
      {"0x2 struct", {0, 2}, vxSTRUCT_CLASS},
  };
  for (const auto& [words, size, classID] : rows) {
    const ArrayBase value(array(words).get());
    const ArrayBase copy(value);
    EXPECT_NE(copy.getPtr(), value.getPtr());
    EXPECT_EQ(test::sizeOf(copy.getPtr()), size) << words;
    EXPECT_EQ(vxGetClassID(copy.getPtr()), classID) << words;
    EXPECT_FALSE(vxIsComplex(copy.getPtr()) || vxIsSparse(copy.getPtr())) << words;
  }
}

TEST(ArrayBase, MayHaveNoArray) {
  const ArrayBase none;
  const ArrayBase fromNull(nullptr);
  const ArrayBase copy(none);
  for (const ArrayBase* value : {&none, &fromNull, &copy}) {
    EXPECT_EQ(value->getPtr(), nullptr);
    EXPECT_EQ(value->getSharedDataCopy(), nullptr);
    EXPECT_EQ(value->convert_to_string(), nullptr);
    EXPECT_TRUE(*value == none);
  }
  for (const char* words : {"0x0 double", "1x1 double", "0x0 char"}) {
    const Limited some(array(words).get());
    EXPECT_FALSE(some == none || none == some) << words;
  }
  EXPECT_TRUE(ArrayBase::isEmpty(nullptr));
  EXPECT_TRUE(ArrayBase::isEmpty(array("3x0 cell").get()));
  EXPECT_FALSE(ArrayBase::isEmpty(array("1x1 cell").get()));
}

TEST(ArrayBase, OutlivesTheContextOfItsArray) {
  for (const char* words : {"2x2 double", "0x3 double", "0x0 char", "sparse 1x2 double"}) {
    const std::size_t arrays = vghost::liveArrays();
    {
      std::optional<ArrayBase> value;
      std::optional<ArrayBase> copy;
      vxArrayListContext* context = vxEnterNewArrayListContext();
      value.emplace(array(words).release());
      copy.emplace(*value);
      const vxArray* inContext = value->getSharedDataCopy().release();
      EXPECT_NE(inContext, nullptr);
      vxExitArrayListContext(context, nullptr, 0, true);
      EXPECT_EQ(vghost::liveArrays() - arrays, 2U) << words;
      EXPECT_EQ(test::sizeOf(value->getPtr()), test::sizeOf(copy->getPtr()));
    }
    EXPECT_EQ(vghost::liveArrays(), arrays) << words;
  }
}

TEST(ArrayBase, IsAssignedByCopyAndSwap) {
  const ArrayOwner given = array("1x2 double");
  ArrayBase first(given.get());
  ArrayBase second;
  const vxArray* held = first.getPtr();
  const std::uint64_t calls = vghost::faults::hostCallCount();
  first.swap(second);
  EXPECT_EQ(vghost::faults::hostCallCount(), calls);
  EXPECT_EQ(first.getPtr(), nullptr);
  EXPECT_EQ(second.getPtr(), held);
  EXPECT_EQ(&(first = second), &first);
  EXPECT_NE(first.getPtr(), held);
  EXPECT_EQ(vxGetData(first.getPtr()), vxGetData(given.get()));
  first = *&first;
  EXPECT_EQ(vxGetData(first.getPtr()), vxGetData(given.get()));

  const vxArray* kept = first.getPtr();
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(first = second, Lindgrove::System::OutOfMemoryException_DEPRECATED);
  EXPECT_EQ(first.getPtr(), kept);
}

struct Pair {
  const char* left;
  Numbers leftElements;
  const char* right;
  Numbers rightElements;
  bool areEqual;
};

TEST(ArrayBaseEquality, ComparesSizeClassAndRealParts) {
  // clang-format off
  const Pair rows[] = {
      {"1x2 double",  {1, 2},      "1x2 double",  {1, 2},      true},
      {"1x2 double",  {1, 2},      "1x2 double",  {1, 3},      false},
      {"1x2 double",  {1, 2},      "1x2 single",  {1, 2},      false},
      {"1x2 double",  {1, 2},      "2x1 double",  {1, 2},      false},
      {"2x6 double",  {1},         "2x3x2 double", {1},        false},
      {"2x2x3 double", {1},        "2x3x2 double", {1},        true},
      {"1x1 double",  {NAN},       "1x1 double",  {NAN},       false},
      {"1x2 single",  {0, NAN},    "1x2 single",  {0, NAN},    false},
      {"1x1 double",  {0.0},       "1x1 double",  {-0.0},      true},
      {"1x1 single",  {-0.0},      "1x1 single",  {0.0},       true},
      {"1x2 logical", {1, 0},      "1x2 logical", {1, 0},      true},
      {"1x2 logical", {1, 0},      "1x2 logical", {1, 1},      false},
      {"1x2 double",  {1, 2},      "complex 1x2 double", {1, 2}, true},
      {"0x3 double",  {1},         "0x3 double",  {1},         true},
      {"0x3 double",  {1},         "0x3 single",  {1},         false},
      {"0x3 double",  {1},         "0x4 double",  {1},         false},
      // The class of the right one decides.
      {"1x2 char",    {1, 2},      "1x3 char",    {4, 5},      true},
      {"1x2 double",  {1, 2},      "1x3 char",    {4, 5},      true},
      {"1x3 char",    {4, 5},      "1x2 double",  {1, 2},      false},
      {"1x2 double",  {1, 2},      "1x1 cell",    {1},         true},
      {"0x2 struct",  {1},         "1x1 double",  {1},         false},
  };
  // clang-format on
  for (const Pair& row : rows) {
    const Limited left(array(row.left, row.leftElements).get());
    const Limited right(array(row.right, row.rightElements).get());
    EXPECT_EQ(left == right, row.areEqual)
        << row.left << " " << testing::PrintToString(row.leftElements) << ", " << row.right << " "
        << testing::PrintToString(row.rightElements);
  }
  test::forEachIntegerClass([](vxClassID classID, auto) {
    const std::string words = std::string("1x2 ") + vxClassName(classID);
    const auto valueOf = [&](double last) { return Limited(array(words, {1, last}).get()); };
    EXPECT_TRUE(valueOf(100) == valueOf(100)) << words;
    EXPECT_FALSE(valueOf(100) == valueOf(101)) << words;
  });
}

ArrayOwner logicalOf(unsigned char byte) {
  ArrayOwner result = array("1x1 logical");
  *static_cast<unsigned char*>(vxGetWritableData(result.get())) = byte;
  return result;
}

TEST(ArrayBaseEquality, ComparesLogicalsAsBytes) {
  EXPECT_TRUE(Limited(logicalOf(2).get()) == Limited(logicalOf(2).get()));
  EXPECT_FALSE(Limited(logicalOf(2).get()) == Limited(logicalOf(1).get()));
}

TEST(ArrayBaseEquality, IsBoundByTheLimitOfTheLeftOne) {
  for (const char* className : {"double", "uint8", "logical"}) {
    const auto valueOf = [&](const char* size) {
      return Limited(array(std::string(size) + " " + className).get());
    };
    const Limited longest = valueOf("1x32000");
    EXPECT_TRUE(longest == valueOf("1x32000")) << className;
    EXPECT_FALSE(static_cast<ArrayBase>(longest) == longest) << "the limit is 0";
    EXPECT_TRUE(longest == static_cast<ArrayBase>(longest));
    const Limited longer = valueOf("1x32001");
    EXPECT_FALSE(longer == longer) << className;
    EXPECT_FALSE(longer == Limited(longer)) << className;
  }
  EXPECT_EQ(ArrayBase().getMaxNumberOfValuesToCompare(), 0U);
  EXPECT_TRUE(ArrayBase(array("0x3 double").get()) == ArrayBase(array("0x3 double").get()));
  EXPECT_TRUE(ArrayBase(array("1x3 char").get()) == ArrayBase(array("1x3 char").get()));
  EXPECT_EQ(graphics::datatype::ColorMap().getMaxNumberOfValuesToCompare(), 32000U);
}

std::string textOf(const ArrayBase& value) {
  const std::unique_ptr<char, void (*)(void*)> text(value.convert_to_string(), utFree);
  return text.get();
}

TEST(ArrayBaseText, ListsShortRowsAndGivesTheSizeOfOthers) {
  // clang-format off
  const std::tuple<const char*, Numbers, const char*> rows[] = {
      {"1x3 double", {1, 2, 3}, "[ 1 2 3 ]"},        {"1x3 double", {0.1, -1e20, NAN}, "[ 0.1 -1e+20 nan ]"},
      {"1x1 double", {1234567}, "[ 1.23457e+06 ]"},  {"1x2 single", {0.1, -INFINITY}, "[ 0.1 -inf ]"},
      {"1x2 logical", {1, 0}, "[ 1 0 ]"},            {"1x3 int8", {65, 32, 98}, "[ A   b ]"},
      {"1x2 uint8", {90, 255}, "[ Z \xFF ]"},        {"1x2 int16", {-32768, 65}, "[ -32768 65 ]"},
      {"1x2 uint16", {65535, 65}, "[ 65535 65 ]"},   {"1x1 int32", {-2147483648.0}, "[ -2147483648 ]"},
      {"1x1 uint32", {4294967295.0}, "[ 4294967295 ]"}, {"1x1 int64", {-0x1p63}, "[ -9223372036854775808 ]"},
      {"1x2x2 double", {1, 2, 3, 4}, "[ 1 2 3 4 ]"}, {"complex 1x2 double", {1, 2}, "[ 1 2 ]"},
      {"1x0 double", {1}, "[ ]"},                    {"1x9 int16", {7}, "[ 7 7 7 7 7 7 7 7 7 ]"},
      {"1x10 double", {1}, "[1x10 array]"},          {"4x3 double", {1}, "[4x3 array]"},
      {"2x3x4 uint8", {1}, "[2x12 array]"},          {"0x0 double", {1}, "[0x0 array]"},
      {"2x1 cell", {1}, "[2x1 array]"},              {"2x2 char", {65, 66, 67, 68}, "ABCD"},
      {"0x0 char", {1}, ""},
  };
  // clang-format on
  for (const auto& [words, elements, text] : rows)
    EXPECT_EQ(textOf(ArrayBase(array(words, elements).get())), text) << words;

  const ArrayOwner largest = array("1x1 uint64");
  *static_cast<std::uint64_t*>(vxGetWritableData(largest.get())) = UINT64_MAX;
  EXPECT_EQ(textOf(ArrayBase(largest.get())), "[ 18446744073709551615 ]");
}

TEST(ArrayBaseText, IsTheSameInEveryLocale) {
  struct Commas : test::Grouping {
    Commas() : Grouping("\3") {}
    char do_decimal_point() const override { return ','; }
  };
  const test::GlobalLocale locale(new Commas);
  EXPECT_EQ(textOf(ArrayBase(array("1x2 double", {0.5, 12345}).get())), "[ 0.5 12345 ]");
  EXPECT_EQ(textOf(ArrayBase(array("1x1234 int8").get())), "[1x1234 array]");
}

TEST(ArrayBaseText, HasNoWordsForShortRowsOfOtherClasses) {
  for (const char* words : {"1x1 cell", "1x9 struct", "1x0 cell"})
    EXPECT_THROW(ArrayBase(array(words).get()).convert_to_string(),
                 graphics::datatype::GenericException)
        << words;
}

}  // namespace
