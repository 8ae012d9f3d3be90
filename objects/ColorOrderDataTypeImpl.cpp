// ColorOrder in Java: an array of colours of the windowing toolkit.

#include "FloatElements.h"
#include "JavaObjects.h"
#include "NewArray.h"
#include "ShapedArrayJavaConverter.h"

#include <graphics/datatype/shaped_types.h>
#include <messages/exceptions.h>

#include <vector>

namespace graphics::datatype {

using vcos::COSValue;

namespace {

constexpr const char* kFile = "objects/ColorOrderDataTypeImpl";
constexpr JavaName kColorArray{"com.lindgrove.vlwidgets.inspector.types.ColorArray"};
constexpr JavaName kColor{"java.awt.Color"};

/// One Color for each row of the array.
Local<jobjectArray> newColors(const JavaClass& color, const vxArray* array) {
  const Place place(kFile);
  JNIEnv& java = color.java();
  const std::vector<double> channels = floatsOf(array);
  const std::size_t rows = channels.size() / 3;
  Local<jobjectArray> colors(java,
                             java.NewObjectArray(javaCount(rows, place), color.get(), nullptr));
  requireMade(java, colors.get(), place);
  for (std::size_t i = 0; i < rows; ++i) {
    const auto channel = [&](std::size_t column) {
      return static_cast<jfloat>(channels[column * rows + i]);
    };
    const Local<> made(java, color.create("(FFF)V", channel(0), channel(1), channel(2)));
    java.SetObjectArrayElement(colors.get(), static_cast<jsize>(i), made.get());
    requireNoException(java, place);
  }
  return colors;
}

/// The red, green and blue of a Color.
std::array<jfloat, 3> channelsOf(const JavaClass& color, jmethodID getRGBComponents,
                                 jobject object) {
  constexpr Called kGetter = "getRGBComponents";
  JNIEnv& java = color.java();
  color.require(object, kGetter.name, kGetter.line);
  const Local<> components(
      java, java.CallObjectMethod(object, getRGBComponents, static_cast<jobject>(nullptr)));
  color.require(components.get(), kGetter.name, kGetter.line);
  std::array<jfloat, 3> channels{};
  java.GetFloatArrayRegion(static_cast<jfloatArray>(components.get()), 0, 3, channels.data());
  color.requireNoException(kGetter);
  return channels;
}

}  // namespace

COSValue ColorOrderJavaConverter::to(COSValue value) const {
  const auto* const order = value.asPointer<const ColorOrder>();
  if (!order) raiseJavaError("NULL is not a valid value for ColorOrder");
  const Place place(kFile);
  const auto colors = newColors(JavaClass(*this, kColor, place), order->getPtr());
  return COSValue::fromPointer(
      JavaClass(*this, kColorArray, place)
          .newInstance("([Ljava/awt/Color;)Lcom/lindgrove/vlwidgets/inspector/types/ColorArray;",
                       colors.get()));
}

COSValue ColorOrderJavaConverter::from(COSValue object) const {
  if (object.isNull()) raiseJavaError("NULL is not a valid value for ColorOrder");
  const Place place(kFile);
  const JavaClass colorArray(*this, kColorArray, place);
  auto* const given = object.asPointer<_jobject>();
  colorArray.requireInstance(given);
  const Local<> result =
      JavaObject(colorArray, given).object("getColorArray", "()[Ljava/awt/Color;");
  JNIEnv& java = colorArray.java();
  const auto colors = static_cast<jobjectArray>(result.get());
  const auto count = static_cast<std::size_t>(java.GetArrayLength(colors));
  if (count == 0) raiseJavaError("ColorOrder must have at least one element");
  const JavaClass color(*this, kColor, place);
  const jmethodID getRGBComponents = color.findGetter("getRGBComponents", "([F)[F");
  const ArrayPtr array(vxCreateNumericMatrix(count, 3, vxDOUBLE_CLASS, vxREAL));
  auto* const elements = static_cast<double*>(vxGetWritableData(array.get()));
  for (std::size_t i = 0; i < count; ++i) {
    const Local<> element(java, java.GetObjectArrayElement(colors, static_cast<jsize>(i)));
    const auto channels = channelsOf(color, getRGBComponents, element.get());
    for (std::size_t column = 0; column < 3; ++column)
      elements[column * count + i] = double{channels[column]};
  }
  try {
    return COSValue::fromPointer(new ColorOrder(array.get()));
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    raiseJavaError("Invalid value for ColorOrder");
  }
}

const char* ColorOrderJavaConverter::getJavaDeclarationName() {
  return kColorArray.dotted;
}

}  // namespace graphics::datatype
