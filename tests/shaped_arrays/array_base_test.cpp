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
#include <vector>

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

TEST(ArrayBase, SharesElementsAndOutlivesTheContextOfItsArray) {
  for (const char* words :
       {"2x3 double", "1x2x3 uint8", "complex 2x2 single", "1x4 char", "3x1 logical",
        "sparse 2x2 double", "1x2 cell", "0x3 double", "complex 2x0 single", "2x0x4 int8",
        "0 uint16", "1x0 cell", "0x0x1x2 logical", "0x5 char", "sparse 0x2 double", "0x2 struct"}) {
    SCOPED_TRACE(words);
    const std::size_t arrays = vghost::liveArrays();
    {
      std::optional<ArrayBase> value;
      std::optional<ArrayBase> copy;
      vxArrayListContext* context = vxEnterNewArrayListContext();
      const vxArray* given = array(words).release();
      // An array without elements is copied by class and size, and none is sparse.
      const bool isComplex = vxIsComplex(given) && !vxIsEmpty(given);
      Size size = test::sizeOf(given);
      if (size.size() == 1 || size == Size{0, 5}) size = {0, 0};
      value.emplace(given);
      copy.emplace(*value);
      for (const vxArray* held :
           {std::as_const(*value).getPtr(), std::as_const(*copy).getPtr(),
            static_cast<const vxArray*>(copy->getSharedDataCopy().release())}) {
        EXPECT_NE(held, given);
        EXPECT_EQ(
            std::tuple(vxGetData(held), vxGetClassID(held), vxIsComplex(held), vxIsSparse(held)),
            std::tuple(vxGetData(given), vxGetClassID(given), isComplex, false));
        EXPECT_EQ(vxGetImagData(held), vxGetImagData(given));
        EXPECT_EQ(test::sizeOf(held), size);
      }
      vxExitArrayListContext(context, nullptr, 0, true);
      EXPECT_GE(vghost::liveArrays() - arrays, 2U);
      EXPECT_EQ(test::sizeOf(value->getPtr()), test::sizeOf(copy->getPtr()));
    }
    EXPECT_EQ(vghost::liveArrays(), arrays);
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
  EXPECT_EQ(first.getSharedDataCopy(), nullptr);
  EXPECT_EQ(second.getPtr(), held);
  EXPECT_EQ(&(first = second), &first);
  EXPECT_NE(first.getPtr(), held);
  first = *&first;
  EXPECT_EQ(vxGetData(first.getPtr()), vxGetData(given.get()));
  const vxArray* kept = first.getPtr();
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(first = second, Lindgrove::System::OutOfMemoryException_DEPRECATED);
  EXPECT_EQ(first.getPtr(), kept);
}

struct Side {
  const char* words = nullptr;  ///< null: no array
  Numbers elements = {1};

  Limited value() const { return Limited(words ? array(words, elements).get() : nullptr); }
};

TEST(ArrayBaseEquality, ComparesSizeClassAndRealParts) {
  const std::tuple<Side, std::vector<Side>, std::vector<Side>> rows[] = {
      // equal, different
      // clang-format off
      {{"1x2 double", {1, 2}},
       {{"1x2 double", {1, 2}}, {"complex 1x2 double", {1, 2}}, {"1x3 char", {4, 5}}, {"1x1 cell"}},
       {{"1x2 double", {1, 3}}, {"1x2 single", {1, 2}}, {"2x1 double", {1, 2}}}},
      {{"1x1 double", {NAN}},     {},                           {{"1x1 double", {NAN}}}},
      {{"1x2 single", {0, NAN}},  {},                           {{"1x2 single", {0, NAN}}}},
      {{"1x1 double", {0.0}},     {{"1x1 double", {-0.0}}},     {}},
      {{"1x1 single", {-0.0}},    {{"1x1 single", {0.0}}},      {}},
      {{"1x2 logical", {1, 0}},   {{"1x2 logical", {1, 0}}},    {{"1x2 logical", {1, 1}}}},
      {{"2x2x3 double"},          {{"2x3x2 double"}},           {{"2x6 double"}}},
      {{"0x3 double"},            {{"0x3 double"}},             {{"0x3 single"}, {"0x4 double"}, {}}},
      {{},                        {{}},                         {{"0x0 double"}, {"0x0 char"}}},
      // The class of the right one decides.
      {{"1x2 char", {1, 2}},      {{"1x3 char", {4, 5}}},       {{"1x2 double", {1, 2}}}},
      {{"0x2 struct"},            {{"0x0 cell"}},               {{"1x1 double"}}},
      // clang-format on
  };
  for (const auto& [left, equal, different] : rows) {
    SCOPED_TRACE(testing::PrintToString(std::pair(left.words, left.elements)));
    for (const Side& right : equal)
      EXPECT_TRUE(left.value() == right.value()) << right.words;
    for (const Side& right : different)
      EXPECT_FALSE(left.value() == right.value()) << right.words;
  }
  test::forEachIntegerClass([](vxClassID classID, auto) {
    const std::string words = std::string("1x2 ") + vxClassName(classID);
    const auto valueOf = [&](double last) { return Limited(array(words, {1, last}).get()); };
    EXPECT_TRUE(valueOf(100) == valueOf(100) && !(valueOf(100) == valueOf(101))) << words;
  });
  const auto logicalOf = [](unsigned char byte) {
    const ArrayOwner result = array("1x1 logical");
    *static_cast<unsigned char*>(vxGetWritableData(result.get())) = byte;
    return Limited(result.get());
  };
  EXPECT_TRUE(logicalOf(2) == logicalOf(2));
  EXPECT_FALSE(logicalOf(2) == logicalOf(1)) << "logicals are compared as bytes";
}

TEST(ArrayBaseEquality, IsBoundByTheLimitOfTheLeftOne) {
  for (const char* className : {"double", "uint8", "logical"}) {
    SCOPED_TRACE(className);
    const Limited longest(array(std::string("1x32000 ") + className).get());
    EXPECT_TRUE(longest == Limited(longest));
    EXPECT_FALSE(static_cast<ArrayBase>(longest) == longest) << "the limit is 0";
    EXPECT_TRUE(longest == static_cast<ArrayBase>(longest));
    const Limited longer(array(std::string("1x32001 ") + className).get());
    EXPECT_FALSE(longer == longer);
  }
  EXPECT_TRUE(ArrayBase(array("0x3 double").get()) == ArrayBase(array("0x3 double").get()));
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
      {"1x1234 int8", {1}, "[1x1234 array]"},        {"1x1 uint64", {0x1p63}, "[ 9223372036854775808 ]"},
      {"0x0 char", {1}, ""},
  };
  // clang-format on
  struct Commas : test::Grouping {
    Commas() : Grouping("\3") {}
    char do_decimal_point() const override { return ','; }
  };
  const test::GlobalLocale locale(new Commas);  // which has no say in it
  for (const auto& [words, elements, text] : rows)
    EXPECT_EQ(textOf(ArrayBase(array(words, elements).get())), text) << words;
  for (const char* words : {"1x1 cell", "1x9 struct", "1x0 cell"})
    EXPECT_THROW(ArrayBase(array(words).get()).convert_to_string(),
                 graphics::datatype::GenericException)
        << words;
}

}  // namespace
