// What holds for each of the shaped array types, against a list of them that is written by hand.

#include "shaped_arrays/Catalogue.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/shaped_types.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/catalog.h>
#include <vx/errors.h>

#include <optional>
#include <string>
#include <utility>

namespace {

using namespace graphics::datatype;
using test::array;
using test::ArrayOwner;
using test::kShapedTypes;
using test::MessagePtr;
using test::Numbers;
using test::ShapedType;
using test::Size;
using vcos::COSNameID;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

TypeAccess accessOf(const std::string& name) {
  return TypeAccess::find(COSNameID(("vortil.graphics.datatype." + name).c_str())).value();
}

ArrayBase& valueIn(COSValue word) {
  return *word.asPointer<ArrayBase>();
}

vxClassID classNamed(const char* name) {
  return vxGetClassID(array(std::string("0x0 ") + name).get());
}

/// Whether the type takes the array, and the message that is there afterwards.
std::pair<bool, std::string> verdictOf(const std::string& type, const vxArray* array) {
  const TypeAccess access = accessOf(type);
  const OwnedValue any(access.dataType(), access.fromText("[]"));
  MessagePtr message;
  const bool isValid = valueIn(any.get()).isValid(array, message);
  return {isValid, test::wordsOf(message)};
}

/// The message that `work` raises, in the same words but for its arguments; "" if it raises none.
template <class Work>
std::string raisedBy(Work&& work) {
  const std::string identifier = test::identifierRaisedBy(work);
  return identifier.substr(identifier.rfind(':') + 1);
}

class ShapedTypes : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }

  template <class Check>
  static void forEachType(Check&& check) {
    for (const ShapedType& type : kShapedTypes) {
      SCOPED_TRACE(type.name);
      const TypeAccess access = accessOf(type.name);
      ASSERT_TRUE(access.textConversion() && access.arrayConversion());
      static_cast<void>(access.dataType().getDefaultValue());  // stays
      const std::size_t arrays = vghost::liveArrays();
      const std::size_t blocks = vghost::liveBlocks();
      check(type, access, access.dataType());
      EXPECT_EQ(vghost::liveArrays(), arrays);
      EXPECT_EQ(vghost::liveBlocks(), blocks);
    }
  }
};

TEST_F(ShapedTypes, DescribeThemselves) {
  forEachType([](const ShapedType& expected, const TypeAccess&, vcos::COSDataType& type) {
    EXPECT_EQ(type.getName(), expected.name);
    EXPECT_EQ(type.getDeclarationName(), expected.name);
    EXPECT_STREQ(type.getCategoryName(), "Fundamental");
    EXPECT_EQ(type.getStorageType(), 7);
    EXPECT_EQ(type.getSizeInBits(), 64U);
    EXPECT_EQ(type.getValueSizeInBytes({}), 8U);
    EXPECT_FALSE(type.isPossibleValuesFinite());
  });
  EXPECT_STREQ(ColorMapDataType::getDataTypeName(), "vortil.graphics.datatype.ColorMap");
  const auto* type = dynamic_cast<const TickDataType*>(TickDataType::getType());
  ASSERT_EQ(type, &accessOf("Tick").dataType());
  EXPECT_TRUE(type->areNonStringValuesAllowed());
}

TEST_F(ShapedTypes, DefaultsAreMadeOnce) {
  forEachType([](const ShapedType& expected, const TypeAccess&, vcos::COSDataType& type) {
    const COSValue word = type.getDefaultValue();
    EXPECT_EQ(type.getDefaultValue(), word);
    ASSERT_FALSE(word.isNull());
    const vxArray* held = valueIn(word).getPtr();
    ASSERT_EQ(held == nullptr, expected.defaultRow.empty());
    if (!held) return;
    EXPECT_EQ(test::numbersOf(held), expected.defaultRow);
    EXPECT_EQ(test::sizeOf(held), (Size{1, expected.defaultRow.size()}));
    EXPECT_EQ(vxGetClassID(held), classNamed(expected.storageClass));
    EXPECT_EQ(verdictOf(expected.name, held).first, true);
  });
}

TEST_F(ShapedTypes, SixOfThemTakeNoEmptyArray) {
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    const ArrayOwner numbers = array("0x0 double");
    const ArrayOwner cells = array("0x3 cell");
    if (expected.emptyFailure) {
      EXPECT_EQ(verdictOf(expected.name, numbers.get()),
                std::pair(false, expected.name + expected.emptyFailure));
      EXPECT_EQ(verdictOf(expected.name, cells.get()), std::pair(false, expected.name + "Type"));
      EXPECT_EQ(raisedBy([&] { access.fromArray(cells.get()); }), expected.name + "Type");
      return;
    }
    for (const vxArray* each : {numbers.get(), cells.get(), static_cast<vxArray*>(nullptr)})
      EXPECT_EQ(verdictOf(expected.name, each), std::pair(true, std::string()));
    const OwnedValue value(type, access.fromArray(cells.get()));
    EXPECT_EQ(vxGetClassID(valueIn(value.get()).getPtr()), vxCELL_CLASS);
  });
}

TEST_F(ShapedTypes, ATextWithoutNumbersIsTheEmptyValueAndNullIsNone) {
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    const OwnedValue empty(type, access.fromText(" [ ] "));
    ASSERT_FALSE(empty.get().isNull());
    EXPECT_EQ(valueIn(empty.get()).getPtr(), nullptr);
    EXPECT_FALSE(access.toText(empty.get()));
    for (const COSValue word : {empty.get(), COSValue()}) {
      const ArrayOwner held = access.toArray(word);
      EXPECT_EQ(test::sizeOf(held.get()), (Size{0, 0}));
      EXPECT_EQ(vxGetClassID(held.get()), classNamed(expected.storageClass));
    }
    const OwnedValue copy(type, type.copy(empty.get()));
    EXPECT_NE(copy.get(), empty.get());
    EXPECT_EQ(type.compare(copy.get(), empty.get()), 0);

    EXPECT_TRUE(access.textConversion()->from({}).isNull());
    EXPECT_TRUE(access.arrayConversion()->from({}).isNull());
    EXPECT_TRUE(access.textConversion()->to({}).isNull());
    EXPECT_TRUE(type.copy({}).isNull());
    type.destroy({});
    EXPECT_TRUE(type.isEqual({}, {}));
    EXPECT_FALSE(type.isEqual({}, empty.get()));
    EXPECT_FALSE(type.isEqual(empty.get(), {}));
    EXPECT_EQ(type.compare({}, empty.get()), 2);
  });
}

TEST_F(ShapedTypes, ValuesKeepTheClassAndShareTheElements) {
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    std::optional<ArrayOwner> given(expected.sampleArray());
    const vxClassID classID = vxGetClassID(given->get());
    const Size size = test::sizeOf(given->get());
    const Numbers numbers = test::numbersOf(given->get());
    const void* const data = vxGetData(given->get());
    const OwnedValue value(type, access.fromArray(given->get()));
    given.reset();
    const OwnedValue copy(type, type.copy(value.get()));
    const ArrayOwner back = access.toArray(copy.get());
    EXPECT_EQ(vxGetClassID(back.get()), classID);
    EXPECT_EQ(test::sizeOf(back.get()), size);
    EXPECT_THAT(test::numbersOf(back.get()),
                testing::Pointwise(testing::NanSensitiveDoubleEq(), numbers));
    EXPECT_EQ(vxGetData(back.get()), data);

    EXPECT_NE(copy.get(), value.get());
    const int expectedOrder = expected.name == "SurfaceCData" ? 2 : 0;  // holds a NaN
    EXPECT_EQ(type.compare(value.get(), copy.get()), expectedOrder);
    const OwnedValue other(type, access.fromText("[]"));
    EXPECT_EQ(type.compare(value.get(), other.get()), 2);
    EXPECT_EQ(type.compare(other.get(), value.get()), 2);
  });
}

TEST_F(ShapedTypes, TextIsReadIntoTheStorageClassOrIsAnInvalidString) {
  forEachType([](const ShapedType& expected, const TypeAccess& access, vcos::COSDataType& type) {
    const OwnedValue read(type, access.fromText(expected.sampleText));
    const vxArray* held = valueIn(read.get()).getPtr();
    EXPECT_EQ(held == nullptr, std::string_view(expected.sampleText) == "[]");
    EXPECT_TRUE(!held || vxGetClassID(held) == classNamed(expected.storageClass));
    for (const char* text : {"", "[1 2; 3]", "[0 1"}) {
      EXPECT_EQ(test::identifierRaisedBy([&] { access.fromText(text); }),
                "datatypes:" + expected.name + ":ParseException");
      const char* identifier = nullptr;
      const char* message = nullptr;
      vxGetLastErrIdAndMsg(&identifier, &message);
      EXPECT_STREQ(message, "Invalid String");
    }
  });
}

TEST_F(ShapedTypes, ATextThatIsReadButIsNoValueRaisesWhatAnArrayDoes) {
  const char* const rows[][3] = {
      {"ColorMap", "[2 2 2]", "ColorMapType"},
      {"SurfaceVertexNormals", "[1]", "SurfaceVertexNormalsSize"},
      {"PrimitiveColorData", "[1 2]", "PrimitiveColorDataType"},
      {"ColorOrder", "[0 0 NaN]", "NaN"},
  };
  for (const auto& row : rows) {
    const TypeAccess access = accessOf(row[0]);
    EXPECT_EQ(raisedBy([&] { access.fromText(row[1]); }), row[2]) << row[0];
  }
}

struct Outcome {
  const char* type;
  const char* failure;  ///< "" where the array is a value
  const char* words;
  Numbers elements = {1};
};

// clang-format off
const Outcome kOutcomes[] = {
    {"ColorMap", "Type", "2x3 double", {2}}, {"ColorMap", "Type", "4x2 double"}, {"ColorMap", "Size", "4x2 uint8"}, {"ColorMap", "Complex", "complex 4x2 double"},
    {"NColorPtr", "", "2x3 double", {-7, 7}}, {"NColorPtr", "Predicate", "3x3 double", {2}}, {"NColorPtr", "", "3x3 double", {NAN}},
    {"ImageXYData", "NaN", "1x4 double", {1, NAN}}, {"ImageXYData", "Size", "2x2 double"}, {"ImageXYData", "", "sparse complex 2x1 double"},
    {"AlphaMap", "Size", "2x2 double"}, {"AlphaMap", "", "sparse 3x1 logical"},
    {"Curvature", "Size", "1x3 double", {0.5}}, {"Curvature", "Size", "1x1 double", {2}}, {"Curvature", "Range", "1x2 double", {0, 2}},
    {"AxesView", "Type", "1x2 single"}, {"AxesView", "Size", "1x2 double", {NAN}}, {"AxesView", "Sparse", "sparse 1x2 double"},
    {"TextPosition", "Size", "2x2 double"}, {"TextPosition", "Sparse", "sparse 1x2 double"}, {"TextPosition", "", "complex 3x1 double", {NAN}},
    {"CompositeColorData", "", "4x5x3 logical"}, {"CompositeColorData", "Size", "4x5x2 double"}, {"Numeric2D3DMatrix", "Size", "2x2x2x2 double"},
    {"NumericMatrix", "", "sparse 2x2 double"}, {"Tick", "Type", "1x5 uint8"}, {"Limits", "Type", "1x2 char"},
    {"PatchVertices", "Type", "2x3 logical"}, {"PatchVertices", "Size", "4x4 double"}, {"PatchFaceVertexCData", "Size", "4x4 double"},
    {"PrimitiveColorData", "Type", "2x5 double"}, {"PrimitiveColorData", "Size", "4x5 single"}, {"PrimitiveColorData", "NaN", "2x5 single", {1, NAN}}, {"PrimitiveColorData", "Size", "1x5 single", {1, NAN}},
    {"SurfaceCData", "Type", "2x2 logical"}, {"SurfaceCData", "Size", "2x2x2 double"}, {"SurfaceXYData", "Size", "3x1x1 double"},
    {"TextureColorData", "Size", "4x2x2x1 uint8"}, {"TextureColorData", "Size", "3x2 uint8"}, {"VectorData", "Size", "2x3 double"},
};
// clang-format on

TEST_F(ShapedTypes, ReportTheLastFailureOfTheLastPredicate) {
  for (const Outcome& row : kOutcomes) {
    SCOPED_TRACE(testing::Message() << row.type << " " << row.words);
    const ArrayOwner given = array(row.words, row.elements);
    const std::size_t arrays = vghost::liveArrays();
    const auto [isValid, message] = verdictOf(row.type, given.get());
    EXPECT_EQ(isValid ? "" : message, test::messageOf(row.type, row.failure));
    const TypeAccess access = accessOf(row.type);
    std::optional<OwnedValue> value;
    const std::string raised =
        raisedBy([&] { value.emplace(access.dataType(), access.fromArray(given.get())); });
    EXPECT_EQ(raised, message.substr(0, isValid ? 0 : message.find('(')));
    value.reset();
    EXPECT_EQ(vghost::liveArrays(), arrays);
  }
}

TEST_F(ShapedTypes, OnlyAFailedTestTouchesTheMessageAlsoWhereALaterOneHolds) {
  const MessagePtr before(new VORTIL::vg::shaped_arrays::TickSize);
  MessagePtr message = before;
  ColorMap map;
  for (const char* words : {"0x7 struct", "2x3 double"})
    EXPECT_TRUE(map.isValid(array(words).get(), message));
  EXPECT_EQ(message, before);
  EXPECT_TRUE(map.isValid(array("2x3 uint8").get(), message));
  EXPECT_EQ(test::wordsOf(message), "ColorMapType");
  EXPECT_FALSE(map.isValid(array("2x2 uint8").get(), message));
  EXPECT_EQ(test::wordsOf(message), "ColorMapSize");
}

TEST_F(ShapedTypes, AVectorIsKeptAsARow) {
  const ArrayOwner column = array("5x1 double", {1, 2, 3, 4, 5});
  const TypeAccess access = accessOf("VectorData");
  const OwnedValue value(access.dataType(), access.fromArray(column.get()));
  const OwnedValue copy(access.dataType(), access.dataType().copy(value.get()));
  const ArrayOwner row = access.toArray(copy.get());
  EXPECT_EQ(test::sizeOf(row.get()), (Size{1, 5}));
  EXPECT_EQ(test::numbersOf(row.get()), test::numbersOf(column.get()));
  EXPECT_EQ(vxGetData(row.get()), vxGetData(column.get())) << "only the header changes";
  EXPECT_EQ(test::sizeOf(column.get()), (Size{5, 1}));
  for (const char* words :
       {"0x0 double", "0x3 int8", "3x0x2 logical", "0x0 char", "0x3 function_handle"}) {
    const VectorData empty(array(words).get());
    EXPECT_EQ(test::sizeOf(empty.getPtr()), (Size{1, 0})) << words;
  }
  // As many elements as the array is high would not fit into memory.
  const VectorData high(ArrayOwner(vxCreateDoubleMatrix(0, std::size_t{1} << 50, vxREAL)).get());
  EXPECT_EQ(test::sizeOf(high.getPtr()), (Size{1, 0}));
}

}  // namespace
