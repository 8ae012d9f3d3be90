// Host arrays: shapes, sharing of elements, and text.

#include "support/Arrays.h"

#include "support/HostError.h"

#include <gmock/gmock.h>
#include <ut/faults.h>
#include <vx/scopes.h>

#include <cstdint>
#include <functional>
#include <string>

namespace {

using namespace test;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(Arrays, EveryKindComesZeroedInEveryShape) {
  const std::pair<Size, std::size_t> sizesAndCounts[] = {
      {{}, 1}, {{3}, 3}, {{0, 3}, 0}, {{2, 0, 4}, 0}, {{1, 2, 1, 3, 1, 2}, 12}};
  for (const Kind& kind : kKinds) {
    for (const auto& [size, count] : sizesAndCounts) {
      const ArrayOwner array = zeros(kind, size);
      EXPECT_EQ(sizeOf(array.get()), size) << kind.name;
      EXPECT_EQ(numbersOf(array.get()), Numbers(count, 0.0)) << kind.name;
    }
  }
}

template <class T>
double scalarOf(vxClassID classID, T value) {
  const ArrayOwner array(vxCreateNumericMatrix(1, 2, classID, vxREAL));
  static_cast<T*>(vxGetWritableData(array.get()))[0] = value;
  return vxGetScalar(array.get());
}

TEST(Arrays, ScalarsAreReadWithTheSignOfTheirClass) {
  EXPECT_EQ(scalarOf<vxChar>(vxCHAR_CLASS, 0xFFFD), 0xFFFD);
  EXPECT_EQ(scalarOf<float>(vxSINGLE_CLASS, -0.25F), -0.25);
  EXPECT_EQ(scalarOf<std::int8_t>(vxINT8_CLASS, -128), -128);
  EXPECT_EQ(scalarOf<std::uint8_t>(vxUINT8_CLASS, 255), 255);
  EXPECT_EQ(scalarOf<std::uint16_t>(vxUINT16_CLASS, 65535), 65535);
  EXPECT_EQ(scalarOf<std::int64_t>(vxINT64_CLASS, INT64_MIN), -0x1p63);
  EXPECT_EQ(scalarOf<std::uint64_t>(vxUINT64_CLASS, UINT64_MAX), 0x1p64);
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

TEST(Arrays, AWriteThroughOneCopyIsNotSeenByTheOther) {
  for (const Kind& kind : kKinds) {
    const ArrayOwner original = counting(kind, {1, 3});
    const ArrayOwner copy = sharedCopy(original);
    put(copy.get(), 1, 20);
    put(original.get(), 0, 10);
    EXPECT_THAT(numbersOf(original.get()), ElementsAre(10, 2, 3)) << kind.name;
    EXPECT_THAT(numbersOf(copy.get()), ElementsAre(1, 20, 3)) << kind.name;
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
  const std::pair<Size, Numbers> rows[] = {
      {{3, 3}, {1, 2, 3, 4, 5, 6, 0, 0, 0}},
      {{3, 1, 2}, {1, 2, 3, 4, 5, 6}},
      {{2, 1}, {1, 2}},
      {{0, 3}, {}},
  };
  for (const Kind& kind : kKinds) {
    const ArrayOwner original = counting(kind, {2, 3});
    for (const auto& [size, numbers] : rows) {
      const ArrayOwner array = sharedCopy(original);
      vxSetDimensions(array.get(), size.data(), size.size());
      EXPECT_EQ(sizeOf(array.get()), size);
      EXPECT_EQ(numbersOf(array.get()), numbers) << kind.name;
    }
    const ArrayOwner transposed(vxTranspose(original.get()));
    EXPECT_EQ(sizeOf(transposed.get()), (Size{3, 2}));
    EXPECT_THAT(numbersOf(transposed.get()), ElementsAre(1, 3, 5, 2, 4, 6)) << kind.name;
    EXPECT_EQ(sizeOf(original.get()), (Size{2, 3}));
    EXPECT_THAT(numbersOf(original.get()), ElementsAre(1, 2, 3, 4, 5, 6)) << kind.name;

    const ArrayOwner pages = counting(kind, {1, 2, 3});
    vxSetN(pages.get(), 3);
    vxSetM(pages.get(), 2);
    EXPECT_EQ(sizeOf(pages.get()), (Size{2, 3}));
    EXPECT_THAT(numbersOf(pages.get()), ElementsAre(1, 2, 3, 4, 5, 6)) << kind.name;

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
  const struct {
    const char* problem;
    std::function<void()> call;
  } rows[] = {
      {"WrongClass", [] { createByClass(99, 0); }},
      {"WrongClass", [] { createByClass(vxCELL_CLASS, 1); }},
      {"WrongClass", [] { createByClass(vxCELL_CLASS, 0, vxCOMPLEX); }},
      {"WrongClass", [] { createByClass(vxCHAR_CLASS, 1, vxCOMPLEX); }},
      {"WrongClass", [&] { vxGetScalar(cell.get()); }},
      {"WrongClass", [&] { vxGetLogicals(real.get()); }},
      {"WrongClass", [&] { vxGetCell(record.get(), 0); }},
      {"IndexOutOfRange", [&] { vxGetScalar(empty.get()); }},
      {"IndexOutOfRange", [&] { vxGetCell(cell.get(), 2); }},
      {"IndexOutOfRange", [&] { vxGetFieldByNumber(record.get(), 0, -1); }},
      {"IndexOutOfRange", [&] { vxGetFieldByNumber(record.get(), 2, 0); }},
      {"IndexOutOfRange", [&] { omGetArrayElement(object.get(), 2); }},
      {"WrongShape", [&] { ArrayOwner(vxTranspose(real.get())); }},
  };
  for (const auto& row : rows)
    EXPECT_EQ(identifierRaisedBy(row.call), std::string("VORTIL:array:") + row.problem)
        << "row " << &row - rows;
}

TEST(ArrayText, ComesInAndOutWithReplacementsForWhatIsBroken) {
  const struct {
    std::string utf8;
    std::vector<vxChar> units;
    std::string back;
  } rows[] = {
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
  for (const auto& row : rows) {
    const ArrayOwner text(vxCreateString(row.utf8.c_str()));
    EXPECT_EQ(sizeOf(text.get()), (Size{row.units.empty() ? 0U : 1U, row.units.size()}));
    const auto* units = static_cast<const vxChar*>(vxGetData(text.get()));
    EXPECT_THAT(row.units, ElementsAreArray(units, row.units.size())) << row.back;
    EXPECT_EQ(vxArrayToStdString(text.get()), row.back);
  }
  const vxChar unpaired[] = {0xDE00, 0xD83D, 0xD83D, 0xDE00, 0, 0xD83D};
  const ArrayOwner text(vxCreateString_UTF16(unpaired, std::size(unpaired)));
  EXPECT_EQ(vxArrayToStdString(text.get()), std::string("\uFFFD\uFFFD\U0001F600\0\uFFFD", 14));
}

TEST(ArrayText, OnlyCharArraysHaveText) {
  for (const Kind& kind : kKinds) {
    const ArrayOwner array = counting(kind, {1, 1});
    EXPECT_EQ(identifierRaisedBy([&] { vxArrayToStdString(array.get()); }),
              kind.classID == vxCHAR_CLASS ? "" : "VORTIL:class:VORTILConversionError");
  }
}

TEST(ArrayText, CStringsComeFromTheAllocatorAndAreNullWhereItFails) {
  const ArrayOwner array(vxCreateString("\u00DFx"));
  char* text = vxCreateCStrFromArray(array.get(), vxMallocEx);
  EXPECT_STREQ(text, "\u00DFx");
  vxFreeEx(text);
  EXPECT_EQ(vxCreateCStrFromArray(array.get(), [](std::size_t) -> void* { return nullptr; }),
            nullptr);
}

TEST(ArrayText, MatricesArePaddedWithNuls) {
  const char* lines[] = {"ab", "", "\u00E9"};
  const ArrayOwner matrix(vxCreateCharMatrixFromStrings(3, lines));
  EXPECT_EQ(sizeOf(matrix.get()), (Size{3, 2}));
  EXPECT_EQ(vxArrayToStdString(matrix.get()), std::string("a\0\u00E9b\0\0", 7));
}

TEST(ArrayMemory, AnArrayHasToFitBesideThoseThatAreAlive) {
  const auto make = [] { return ArrayOwner(vxCreateDoubleMatrix(100, 1, vxREAL)); };
  vghost::setArrayMemoryLimit(0);
  EXPECT_EQ(identifierRaisedBy([&] { make(); }), "VORTIL:array:SizeLimitExceeded");
  vghost::setArrayMemoryLimit(1000);
  {
    const ArrayOwner first = make();
    EXPECT_EQ(identifierRaisedBy([&] { make(); }), "VORTIL:array:SizeLimitExceeded");
    const ArrayOwner copy(vxCreateSharedDataCopy(first.get()));
    EXPECT_EQ(identifierRaisedBy([&] { vxGetWritableData(copy.get()); }),
              "VORTIL:array:SizeLimitExceeded");
    vxSetDimensions(copy.get(), Size{10, 10}.data(), 2);  // moves no element
  }
  EXPECT_EQ(identifierRaisedBy([&] { make(); }), "");
  vghost::setArrayMemoryLimit(std::size_t{1} << 40);
}

}  // namespace
