// Host arrays: shapes, sharing of elements, and text.

#include "support/Arrays.h"

#include "support/HostError.h"

#include <gmock/gmock.h>
#include <gui_objects/NStrings.h>
#include <gui_objects/UTF16String.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <ut/unicode.h>
#include <vx/scopes.h>

#include <cstdint>
#include <functional>
#include <string>
#include <tuple>

namespace {

using namespace test;
using testing::ElementsAre;

TEST(Arrays, EveryKindComesZeroedInEveryShape) {
  const std::pair<Size, std::size_t> sizesAndCounts[] = {
      {{}, 1}, {{3}, 3}, {{0, 3}, 0}, {{2, 0, 4}, 0}, {{1, 2, 1, 3, 1, 2}, 12}};
  for (const Kind& kind : kKinds) {
    for (const auto& [size, count] : sizesAndCounts) {
      EXPECT_EQ(contentOf(zeros(kind, size)), Content(size, Numbers(count, 0.0))) << kind.name;
    }
  }
}

TEST(Arrays, SizesBeyondMemoryAreRefusedBeforeAnythingIsAllocated) {
  constexpr std::size_t kHuge = std::size_t{1} << 62;
  const Size sizes[] = {{kHuge, 4}, {kHuge, 2, 2, 0}, {0, kHuge, 8}, {2, 2, std::size_t{1} << 50}};
  for (const Kind& kind : kKinds) {
    const ArrayOwner array = counting(kind, {2, 2});
    const std::uint64_t before = vghost::faults::allocationCount();
    for (const Size& size : sizes) {
      const auto reshape = [&] { vxSetDimensions(array.get(), size.data(), size.size()); };
      EXPECT_EQ(identifierRaisedBy(reshape), "VORTIL:array:SizeLimitExceeded") << kind.name;
    }
    EXPECT_EQ(vghost::faults::allocationCount(), before);
    EXPECT_THAT(numbersOf(array.get()), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(identifierRaisedBy([&] { zeros(kind, sizes[0]); }), "VORTIL:array:SizeLimitExceeded");
  }
}

TEST(Arrays, OnlyAWriteToSharedElementsMovesThem) {
  const ArrayOwner array = counting(kComplex, {1, 3});
  const void* data = vxGetData(array.get());
  const void* imag = vxGetImagData(array.get());
  EXPECT_EQ(vxGetWritableData(array.get()), data) << "a sole owner writes in place";
  {
    const ArrayOwner copy = sharedCopy(array);
    numbersOf(copy.get());
    EXPECT_EQ(vxGetData(copy.get()), data) << "reading never copies";
    EXPECT_NE(vxGetWritableData(copy.get()), data);
    EXPECT_NE(vxGetImagData(copy.get()), imag);
  }
  { const ArrayOwner copy = sharedCopy(array); }
  EXPECT_EQ(vxGetWritableImagData(array.get()), imag) << "sole owner again after the copy's end";

  const ArrayOwner cell = counting(kCell, {1, 2});
  const ArrayOwner copy = sharedCopy(cell);
  put(copy.get(), 0, 10);
  EXPECT_EQ(vxGetData(vxGetCell(copy.get(), 1)), vxGetData(vxGetCell(cell.get(), 1)));
}

TEST(Arrays, KeepTheStorageOrderWhenReshapedAndExchangeItWhenTransposed) {
  const Content counted = {{2, 3}, {1, 2, 3, 4, 5, 6}};
  const Content rows[] = {{{3, 3}, {1, 2, 3, 4, 5, 6, 0, 0, 0}},
                          {{3, 1, 2}, counted.second},
                          {{2, 1}, {1, 2}},
                          {{0, 3}, {}}};
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    const ArrayOwner original = counting(kind, {2, 3});
    for (const Content& row : rows) {
      const ArrayOwner array = sharedCopy(original);
      vxSetDimensions(array.get(), row.first.data(), row.first.size());
      EXPECT_EQ(contentOf(array), row);
    }
    const ArrayOwner transposed(vxTranspose(original.get()));
    EXPECT_EQ(contentOf(transposed), Content({3, 2}, {1, 3, 5, 2, 4, 6}));
    EXPECT_EQ(contentOf(original), counted);

    const ArrayOwner pages = counting(kind, {1, 2, 3});
    vxSetN(pages.get(), 3);
    vxSetM(pages.get(), 2);
    EXPECT_EQ(contentOf(pages), counted);

    const ArrayOwner cut = sharedCopy(original);
    vxSetM(cut.get(), 1);
    put(cut.get(), 0, 9);
    vxSetM(cut.get(), 2);
    EXPECT_THAT(numbersOf(cut.get()), ElementsAre(9, 2, 3, 0, 0, 0)) << "has elements of its own";
    vxSetM(cut.get(), 0);
    vxSetM(cut.get(), 1);
    EXPECT_THAT(numbersOf(cut.get()), ElementsAre(0, 0, 0)) << "was empty";
  }
}

void createByClass(int classID, std::size_t n, vxComplexity complexity = vxREAL) {
  ArrayOwner(vxCreateNumericMatrix(1, n, vxClassID(classID), complexity));
}

TEST(Arrays, WrongArgumentsAreNamed) {
  const ArrayOwner real = counting(kReal, {1, 1, 2});
  const ArrayOwner empty = zeros(kReal, {0, 0});
  const ArrayOwner cell = counting(kCell, {1, 2});
  const ArrayOwner record = counting(kStruct, {1, 2});
  const ArrayOwner object = counting(kObject, {1, 2});
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"array:WrongClass", [] { createByClass(99, 0); }},
      {"array:WrongClass", [] { createByClass(vxCELL_CLASS, 1); }},
      {"array:WrongClass", [] { createByClass(vxCELL_CLASS, 0, vxCOMPLEX); }},
      {"array:WrongClass", [] { createByClass(vxCHAR_CLASS, 1, vxCOMPLEX); }},
      {"array:WrongClass", [&] { vxGetScalar(cell.get()); }},
      {"array:WrongClass", [&] { vxGetLogicals(real.get()); }},
      {"array:WrongClass", [&] { vxGetCell(record.get(), 0); }},
      {"array:IndexOutOfRange", [&] { vxGetScalar(empty.get()); }},
      {"array:IndexOutOfRange", [&] { vxGetCell(cell.get(), 2); }},
      {"array:IndexOutOfRange", [&] { vxGetFieldByNumber(record.get(), 0, -1); }},
      {"array:IndexOutOfRange", [&] { vxGetFieldByNumber(record.get(), 2, 0); }},
      {"array:IndexOutOfRange", [&] { omGetArrayElement(object.get(), 2); }},
      {"array:WrongShape", [&] { ArrayOwner(vxTranspose(real.get())); }},
      {"array:WrongClass", [&] { ArrayOwner(vxMustBe(cell.get(), vxDOUBLE_CLASS)); }},
      {"array:WrongClass", [&] { ArrayOwner(vxMustBe(real.get(), vxCELL_CLASS)); }},
      {"class:VORTILConversionError",
       [&] {
         NStrings(counting(kCell, {1, 1}).get());
       }},
      {"class:VORTILConversionError", [&] { NStrings(real.get()); }},
      {"class:VORTILConversionError", [&] { vxArrayToStdString(real.get()); }},
      {"class:VORTILConversionError", [&] { vxArrayToStdString(cell.get()); }},
      {"class:VORTILConversionError", [] { vxArrayToStdString(nullptr); }},
  };
  for (const auto& row : rows)
    EXPECT_EQ(identifierRaisedBy(row.second), std::string("VORTIL:") + row.first)
        << "row " << &row - rows;
}

TEST(Arrays, TakeTextAndGiveItWithReplacementsForWhatIsBroken) {
  const std::tuple<std::string, std::vector<vxChar>, std::string> rows[] = {
      {"", {}, ""},
      {"a\u00DF\u07FF\u0800\uFFFF", {'a', 0xDF, 0x7FF, 0x800, 0xFFFF}, "a\u00DF\u07FF\u0800\uFFFF"},
      {"\U00010000", {0xD800, 0xDC00}, "\U00010000"},
      {"a\x80z", {'a', 0xFFFD, 'z'}, "a\uFFFDz"},
      {"a\xE2\x82", {'a', 0xFFFD}, "a\uFFFD"},
      {"\xF0\x9F\x98z", {0xFFFD, 'z'}, "\uFFFDz"},
      {"\xC0\xAF", {0xFFFD, 0xFFFD}, "\uFFFD\uFFFD"},
      {"\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}, "\uFFFD\uFFFD\uFFFD"},
      {"\xF5\x80", {0xFFFD, 0xFFFD}, "\uFFFD\uFFFD"},
  };
  for (const auto& [utf8, units, back] : rows) {
    const ArrayOwner text(vxCreateString(utf8.c_str()));
    const Size size = {units.empty() ? 0U : 1U, units.size()};
    EXPECT_EQ(contentOf(text), Content(size, Numbers(units.begin(), units.end()))) << back;
    EXPECT_EQ(vxArrayToStdString(text.get()), back);
  }
  const vxChar unpaired[] = {0xDE00, 0xD83D, 0xD83D, 0xDE00, 0, 0xD83D};
  const ArrayOwner text(vxCreateString_UTF16(unpaired, std::size(unpaired)));
  EXPECT_EQ(vxGetScalar(text.get()), 0xDE00) << "characters have no sign";
  EXPECT_EQ(vxArrayToStdString(text.get()), std::string("\uFFFD\uFFFD\U0001F600\0\uFFFD", 14));

  const char* lines[] = {"ab", "", "\u00E9"};
  const ArrayOwner matrix(vxCreateCharMatrixFromStrings(3, lines));
  EXPECT_EQ(sizeOf(matrix.get()), (Size{3, 2}));
  EXPECT_EQ(vxArrayToStdString(matrix.get()), std::string("a\0\u00E9b\0\0", 7));
}

TEST(Arrays, BecomeOfAClassUnlessTheyAreFullAndOfIt) {
  const ArrayOwner given = array("complex 1x3 double", {-1.5, 100, 3});
  EXPECT_EQ(vxMustBe(given.get(), vxDOUBLE_CLASS), given.get());
  const ArrayOwner whole(vxMustBe(given.get(), vxINT8_CLASS));
  EXPECT_EQ(contentOf(whole), Content({1, 3}, {-2, 100, 3}));
  EXPECT_TRUE(vxGetClassID(whole.get()) == vxINT8_CLASS && vxIsComplex(whole.get()));
  const ArrayOwner sparse = array("sparse 2x1 double", {7});
  const ArrayOwner full(vxMustBe(sparse.get(), vxDOUBLE_CLASS));
  EXPECT_TRUE(full != sparse && !vxIsSparse(full.get()));
}

TEST(Arrays, HoldReferencesToObjects) {
  const vcos::COSInterfacePtr object = test::numberedObject(7);
  const ArrayOwner one(omCreateVCOSScalar(object));
  EXPECT_EQ(contentOf(one), Content({1, 1}, {7}));
  EXPECT_STREQ(vxGetClassName(one.get()), "Numbered");
  const ArrayOwner none(omCreateVCOSScalar({}));
  EXPECT_EQ(sizeOf(none.get()), (Size{0, 0}));
  EXPECT_STREQ(vxGetClassName(none.get()), "handle");
  const ArrayOwner outside(vcosConvertArrayToExternal(one.get()));
  omSetArrayElement(outside.get(), 0, {});
  EXPECT_EQ(omGetArrayElement(one.get(), 0), object) << "the elements are shared until written";
  EXPECT_TRUE(omIsVCOS(none.get()) && !omIsVCOS(nullptr) && !omIsVCOS(zeros(kCell, {1, 1}).get()));
}

TEST(Arrays, AreListsOfTexts) {
  const char* const kTexts[] = {"a", nullptr, "\U0001D11E "};
  NStrings list(3, kTexts);
  EXPECT_EQ(NStrings(ArrayOwner(list.toMatrix()).get()), list);
  EXPECT_EQ(NStrings(&list), list);
  EXPECT_EQ(NStrings(zeros(kChar, {std::size_t{1} << 40U, 0}).get()), NStrings());
  list.setStringAt(1, "b");
  list.setStringAt(0, nullptr);
  EXPECT_STREQ(list[0], "");
  EXPECT_STREQ(list[1], "b");
  for (const int index : {-1, 3}) {
    EXPECT_EQ(identifierRaisedBy([&] { static_cast<void>(list[index]); }),
              "VORTIL:array:IndexOutOfRange");
    EXPECT_EQ(identifierRaisedBy([&] { list.setStringAt(index, ""); }),
              "VORTIL:array:IndexOutOfRange");
  }
  unsigned short* const units = utf8_to_utf16("a\u00E9z", 3);
  EXPECT_EQ(gui_objects::UTF16String(units),
            gui_objects::test::makeUTF16StringFromCharPtr("a\u00E9"));
  utFree(units);
  EXPECT_EQ(utf8_to_utf16(nullptr, -1), nullptr);
}

TEST(ArrayMemory, AnArrayHasToFitBesideThoseThatAreAlive) {
  const auto make = [] { return ArrayOwner(vxCreateDoubleMatrix(100, 1, vxREAL)); };
  const std::string refused = "VORTIL:array:SizeLimitExceeded";
  vghost::setArrayMemoryLimit(0);
  EXPECT_EQ(identifierRaisedBy(make), refused);
  vghost::setArrayMemoryLimit(1000);
  {
    const ArrayOwner copy = sharedCopy(make());
    const ArrayOwner other = sharedCopy(copy);
    EXPECT_EQ(identifierRaisedBy(make), refused);
    EXPECT_EQ(identifierRaisedBy([&] { vxGetWritableData(copy.get()); }), refused);
    vxSetDimensions(copy.get(), Size{10, 10}.data(), 2);  // moves no element
  }
  EXPECT_EQ(identifierRaisedBy(make), "");
  vghost::setArrayMemoryLimit(std::size_t{1} << 40);
}

}  // namespace
