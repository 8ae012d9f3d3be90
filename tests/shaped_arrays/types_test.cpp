// What holds for each of the shaped array types beside what all types have in common.

#include "registry/ShapedTypes.h"
#include "shaped_arrays/Verdicts.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/shaped_types.h>
#include <graphics/datatype/vgdatatypes.h>

#include <map>
#include <string>

namespace {

using namespace graphics::datatype;
using namespace test;
using vcos::OwnedValue;
using vcos::TypeAccess;

class ShapedTypes : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  void TearDown() override { EXPECT_EQ(vghost::liveArrays(), arrays_); }

  template <class Check>
  static void forEachType(Check&& check) {
    for (const ShapedType& type : kShapedTypes) {
      SCOPED_TRACE(type.name);
      const TypeAccess access = accessOf(type.name);
      check(type, access, access.dataType());
    }
  }

 private:
  const std::size_t arrays_ = vghost::liveArrays();
};

TEST_F(ShapedTypes, SayThatTheyAllowOtherValuesThanStrings) {
  EXPECT_STREQ(ColorMapDataType::getDataTypeName(), "vortil.graphics.datatype.ColorMap");
  const auto* type = dynamic_cast<const TickDataType*>(TickDataType::getType());
  ASSERT_EQ(type, &accessOf("Tick").dataType());
  EXPECT_TRUE(type->areNonStringValuesAllowed());
}

TEST_F(ShapedTypes, SixOfThemTakeNoEmptyArray) {
  static const std::map<std::string, std::string> kFailures = {
      {"AlphaMap", "Size"},   {"ColorOrder", "Size"},  {"LimitsWithInfs", "Predicate"},
      {"TickLength", "Size"}, {"Limits", "Predicate"}, {"SurfaceVertexNormals", "Size"}};
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    const ArrayOwner cells = array("0x3 cell");
    if (const auto failure = kFailures.find(expected.name); failure != kFailures.end()) {
      EXPECT_EQ(verdictOf(expected.name, array("0x0 double").get()),
                Verdict(false, expected.name + failure->second));
      EXPECT_EQ(verdictOf(expected.name, cells.get()), Verdict(false, expected.name + "Type"));
      return;
    }
    for (const vxArray* each : {cells.get(), static_cast<vxArray*>(nullptr)})
      EXPECT_EQ(verdictOf(expected.name, each), Verdict(true, ""));
    const OwnedValue value(type, access.fromArray(cells.get()));
    EXPECT_EQ(vxGetClassID(valueIn(value.get()).getPtr()), vxCELL_CLASS);
  });
}

TEST_F(ShapedTypes, TextIsReadIntoTheStorageClassOrIsAnInvalidString) {
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    // Without numbers it is the empty value.
    const OwnedValue empty(type, access.fromText(" [ ] "));
    const OwnedValue copy(type, type.copy(empty.get()));
    EXPECT_EQ(valueIn(copy.get()).getPtr(), nullptr);
    EXPECT_EQ(type.compare(copy.get(), empty.get()), 0);
    EXPECT_FALSE(access.toText(empty.get()));
    const ArrayOwner array = access.toArray(empty.get());
    EXPECT_EQ(sizeOf(array.get()), (Size{0, 0}));
    EXPECT_STREQ(vxGetClassName(array.get()), expected.storageClass);
    const OwnedValue read(type, access.fromText(expected.sampleText));
    const vxArray* held = valueIn(read.get()).getPtr();
    EXPECT_EQ(held == nullptr, expected.printed == nullptr);
    EXPECT_STREQ(held ? vxGetClassName(held) : expected.storageClass, expected.storageClass);
    for (const char* text : {"", "[1 2; 3]", "[0 1"}) {
      EXPECT_EQ(identifierRaisedBy([&] { access.fromText(text); }),
                "datatypes:" + expected.name + ":ParseException");
      EXPECT_STREQ(lastError().text, "Invalid String");
    }
  });
  // What is read but is no value raises what an array does.
  const char* const rows[][3] = {{"ColorMap", "[2 2 2]", "ColorMapType"},
                                 {"SurfaceVertexNormals", "[1]", "SurfaceVertexNormalsSize"},
                                 {"PrimitiveColorData", "[1 2]", "PrimitiveColorDataType"},
                                 {"ColorOrder", "[0 0 NaN]", "NaN"}};
  for (const auto& row : rows)
    EXPECT_EQ(identifierRaisedBy([&] { accessOf(row[0]).fromText(row[1]); }),
              std::string("VORTIL:vg:shaped_arrays:") + row[2]);
}

TEST_F(ShapedTypes, AVectorIsKeptAsARow) {
  const ArrayOwner column = array("5x1 double", {1, 2, 3, 4, 5});
  const TypeAccess access = accessOf("VectorData");
  const OwnedValue value(access.dataType(), access.fromArray(column.get()));
  const OwnedValue copy(access.dataType(), access.dataType().copy(value.get()));
  const ArrayOwner row = access.toArray(copy.get());
  EXPECT_EQ(sizeOf(row.get()), (Size{1, 5}));
  EXPECT_EQ(vxGetData(row.get()), vxGetData(column.get())) << "only the header changes";
  EXPECT_EQ(sizeOf(column.get()), (Size{5, 1}));
  for (const char* words :
       {"0x0 double", "0x3 int8", "3x0x2 logical", "0x0 char", "0x3 function_handle"}) {
    const VectorData empty(array(words).get());
    EXPECT_EQ(sizeOf(empty.getPtr()), (Size{1, 0})) << words;
  }
  // As many elements as the array is high would not fit into memory.
  const VectorData high(ArrayOwner(vxCreateDoubleMatrix(0, std::size_t{1} << 50, vxREAL)).get());
  EXPECT_EQ(sizeOf(high.getPtr()), (Size{1, 0}));
}

}  // namespace
