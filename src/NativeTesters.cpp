// The native entries of the Java tests. Each tested type has a value here that Java code sets and
// gets through the type's Java conversion, as com.lindgrove.test.vg.types.<type>NativeTester.

#include "EnumJavaConverter.h"
#include "JavaConverterUtils.h"
#include "JavaObjects.h"
#include "OnOffBooleanJavaConverter.h"
#include "OwnedWord.h"
#include "ShapedArrayJavaConverter.h"

#include <graphics/datatype/CallbackDataType.h>
#include <graphics/datatype/ConverterTester.h>
#include <graphics/datatype/FontNameDataType.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <graphics/datatype/MarkerColorDataType.h>
#include <graphics/datatype/MeshAlphaDataType.h>
#include <graphics/datatype/MeshColorDataType.h>
#include <graphics/datatype/NLineStylesDataType.h>
#include <graphics/datatype/NStringsDataType.h>
#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/OnOffBooleanDataType.h>
#include <graphics/datatype/Point2DataType.h>
#include <graphics/datatype/Point2dDataType.h>
#include <graphics/datatype/Point3DataType.h>
#include <graphics/datatype/PositionDataType.h>
#include <graphics/datatype/PositiveDataType.h>
#include <graphics/datatype/RGBAColorDataType.h>
#include <graphics/datatype/Rectangle2DataType.h>
#include <graphics/datatype/UTF16StringDataType.h>
#include <graphics/datatype/enumerated_types.h>
#include <graphics/datatype/shaped_types.h>

#include <jni.h>

#include <memory>
#include <string>
#include <type_traits>

namespace graphics::datatype {
namespace {

using vcos::COSValue;

template <class DataType>
const DataType& typeOf() {
  return *static_cast<const DataType*>(DataType::getType());
}

/// The value of a type that Java code sets and gets.
template <class DataType>
class TestValue {
 public:
  COSValue get() {
    if (word_.isNull()) word_ = makeDefault();
    return word_;
  }
  void take(COSValue word) {
    typeOf<DataType>().destroy(word_);
    word_ = word;
  }

 private:
  /// An array type has a default value with data, and a default constructor that gives none.
  static COSValue makeDefault() {
    if constexpr (requires {
                    requires std::is_base_of_v<ArrayBase, typename DataType::ValueClass>;
                  })
      return COSValue::fromPointer(new typename DataType::ValueClass);
    else
      return typeOf<DataType>().copy(typeOf<DataType>().getDefaultValue());
  }

  COSValue word_;
};

template <class DataType>
TestValue<DataType>& testValue() {
  static TestValue<DataType> value;
  return value;
}

// How the conversion of a type is made.

template <class Converter>
struct OwnClass {
  static auto make() { return std::make_unique<Converter>(); }
};
template <class Converter, class DataType>
struct OfType {
  static auto make() {
    return std::make_unique<Converter>(&typeOf<DataType>(), DataType::getDataTypeName());
  }
};
template <class DataType>
using OfNames = OfType<EnumJavaConverter, DataType>;
template <class DataType>
using OfReferences = OfType<ShapedArrayJavaConverter, DataType>;
struct OfOnOff {
  static auto make() { return newOnOffBooleanJavaConverter(); }
};

template <class DataType, class Conversion>
class Tester final : public ConverterTester {
 protected:
  jobject getter(JNIEnv* java, jobject) override {
    return converterIn(java)->to(testValue<DataType>().get()).template asPointer<_jobject>();
  }

  void setter(JNIEnv* java, jobject, jobject value) override {
    testValue<DataType>().take(converterIn(java)->from(COSValue::fromPointer(value)));
  }

  /// Array references alone are made from text as well.
  jobject doConvertToJavaFromString(JNIEnv* java, jobject caller,
                                    const std::string& text) const override {
    if constexpr (std::is_same_v<Conversion, OfReferences<DataType>>) {
      const OwnedWord value(
          typeOf<DataType>(),
          textConversionOf(DataType::getDataTypeName()).from(COSValue::fromPointer(text.c_str())));
      return converterIn(java)->to(value.get()).template asPointer<_jobject>();
    } else {
      return ConverterTester::doConvertToJavaFromString(java, caller, text);
    }
  }

 private:
  static auto converterIn(JNIEnv* java) {
    auto converter = Conversion::make();
    converter->setJNIEnv(java);
    return converter;
  }
};

}  // namespace
}  // namespace graphics::datatype

namespace {

using namespace graphics::datatype;  // NOLINT: the entries stand outside of every namespace

/// A name, which is ASCII, as a Java string.
template <class GetName>
jstring newName(JNIEnv* java, GetName getName) {
  return static_cast<jstring>(JavaConverterUtils::guarded(
      java, [&]() -> jobject { return java->NewStringUTF(getName()); }));
}

}  // namespace

// clang-format off

#define VGDT_ENTRY(Type, Result, entry) \
  extern "C" JNIEXPORT Result JNICALL Java_com_lindgrove_test_vg_types_##Type##NativeTester_##entry

#define VGDT_NATIVE_TESTER(Type, Conversion)                                               \
  VGDT_ENTRY(Type, jstring, getJavaTypeName)(JNIEnv* java, jobject) {                      \
    return newName(java, [] { return Conversion::make()->getJavaDeclarationName(); });     \
  }                                                                                        \
  VGDT_ENTRY(Type, jstring, getNativeTypeName)(JNIEnv* java, jobject) {                    \
    return newName(java, [] { return typeOf<Type##DataType>().getDeclarationName(); });    \
  }                                                                                        \
  VGDT_ENTRY(Type, jobject, get)(JNIEnv* java, jobject caller) {                           \
    return Tester<Type##DataType, Conversion>().testGetter(java, caller);                  \
  }                                                                                        \
  VGDT_ENTRY(Type, void, set)(JNIEnv* java, jobject caller, jobject value) {               \
    Tester<Type##DataType, Conversion>().testSetter(java, caller, value);                  \
  }
#define VGDT_TEXT_TESTER(Type, Conversion)                                                         \
  VGDT_ENTRY(Type, jobject, convertToJavaFromString)(JNIEnv* java, jobject caller, jstring text) { \
    return Tester<Type##DataType, Conversion>().convertToJavaFromString(java, caller, text);       \
  }

VGDT_NATIVE_TESTER(Callback, OwnClass<CallbackJC>)
VGDT_NATIVE_TESTER(ColorOrder, OwnClass<ColorOrderJavaConverter>)
VGDT_NATIVE_TESTER(Curvature, OfReferences<CurvatureDataType>)
VGDT_TEXT_TESTER(Curvature, OfReferences<CurvatureDataType>)
VGDT_NATIVE_TESTER(DataBounds, OwnClass<DataBoundsJavaConverter>)
VGDT_NATIVE_TESTER(FontName, OwnClass<FontNameJC>)
VGDT_NATIVE_TESTER(HandleOrEmpty, OwnClass<HandleOrEmptyJC>)
VGDT_NATIVE_TESTER(ImageXYData, OfReferences<ImageXYDataDataType>)
VGDT_TEXT_TESTER(ImageXYData, OfReferences<ImageXYDataDataType>)
VGDT_NATIVE_TESTER(LimitsWithInfs, OwnClass<LimitsWithInfsJavaConverter>)
VGDT_NATIVE_TESTER(LineStyle, OfNames<LineStyleDataType>)
VGDT_NATIVE_TESTER(MarkerColor, OwnClass<MarkerColorJC>)
VGDT_NATIVE_TESTER(MarkerStyle, OfNames<MarkerStyleDataType>)
VGDT_NATIVE_TESTER(MeshAlpha, OwnClass<MeshAlphaJC>)
VGDT_NATIVE_TESTER(MeshColor, OwnClass<MeshColorJC>)
VGDT_NATIVE_TESTER(NLineStyles, OwnClass<NLineStylesJC>)
VGDT_NATIVE_TESTER(NStrings, OwnClass<NStringsJC>)
VGDT_NATIVE_TESTER(NumericOrString, OwnClass<NumericOrStringJC>)
VGDT_NATIVE_TESTER(OnOffBoolean, OfOnOff)
VGDT_NATIVE_TESTER(Point2, OwnClass<Point2JC>)
VGDT_NATIVE_TESTER(Point2d, OwnClass<Point2dJC>)
VGDT_NATIVE_TESTER(Point3, OwnClass<Point3JC>)
VGDT_NATIVE_TESTER(Position, OwnClass<PositionJC>)
VGDT_NATIVE_TESTER(Positive, OwnClass<PositiveJC>)
VGDT_NATIVE_TESTER(RGBAColor, OwnClass<RGBAColorJC>)
VGDT_NATIVE_TESTER(Rectangle2, OwnClass<Rectangle2JC>)
VGDT_NATIVE_TESTER(TextPosition, OwnClass<TextPositionJavaConverter>)
VGDT_NATIVE_TESTER(Tick, OwnClass<TickJavaConverter>)
VGDT_NATIVE_TESTER(TickDir, OfNames<TickDirDataType>)
VGDT_NATIVE_TESTER(TickLength, OwnClass<TickLengthJavaConverter>)
VGDT_NATIVE_TESTER(UTF16String, OwnClass<UTF16StringJC>)
