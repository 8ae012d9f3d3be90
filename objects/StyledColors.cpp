// RGBAColor, MarkerColor and MeshColor: a colour, or a word of a table of styles.

#include "NewArray.h"
#include "NumberText.h"
#include "PropertyDataType.ipp"
#include "StyledJavaValues.h"
#include "TypeRegistration.h"

#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/MarkerColorDataType.h>
#include <graphics/datatype/MeshColorDataType.h>
#include <graphics/datatype/RGBAColorDataType.h>
#include <messages/catalog.h>
#include <vg/ArrayDispatcher.h>
#include <vx/errors.h>

#include <type_traits>

namespace graphics::datatype {

using gui_objects::Color3d;
using gui_objects::Color4b;
using gui_objects::Color4d;
using vcos::COSValue;
using vg::TL::detail::ArrayDispatcherBase;

namespace {

namespace real = VORTIL::vg::dt_conv::Matrix_to_Real;

/// The messages of each type. Those of ColorBase::setColorFromString are RGBAColor's for all.
template <class Color>
struct MessagesOf;
#define VGDT_MESSAGES_OF(Type)                                    \
  template <>                                                     \
  struct MessagesOf<Type> {                                       \
    using AmbiguousName = VORTIL::datatypes::Type::AmbiguousName; \
    using ParseError = VORTIL::datatypes::Type::ParseError;       \
    using IsEqual = VORTIL::datatypes::Type##DataType::isEqual;   \
  };
VGDT_MESSAGES_OF(RGBAColor)
VGDT_MESSAGES_OF(MarkerColor)
VGDT_MESSAGES_OF(MeshColor)
#undef VGDT_MESSAGES_OF

/// "[ 1 0.5 0 ]", on the host's heap.
char* newText(const ColorBase& color) {
  NumberText<3> text;
  text << "[";
  for (const double channel : {color.getRed(), color.getGreen(), color.getBlue()})
    text << " " << channel;
  return (text << " ]").newText();
}

vxArray* newArray(const ColorBase& color) {
  return newMatrix<1>({color.getRed(), color.getGreen(), color.getBlue()});
}

template <class Color>
Color colorFromText(const char* text) {
  Color color;
  const auto style = styleNamed<Color>(text);
  if (!style || style == Color::kNumeric) {
    color.setColorFromString(text);
  } else {
    if (ColorNameTable::getInstance()->isNameInTable(text))
      vxErrMsgId(typename MessagesOf<Color>::AmbiguousName());
    color.setStyle(*style);
  }
  return color;
}

template <class Color>
COSValue valueFromText(const char* text) {
  return COSValue::fromPointer(new Color(colorFromText<Color>(text)));
}

template <class Color>
COSValue valueFromCharArray(const vxArray* array) {
  if (vxIsEmpty(array)) vxErrMsgId(typename MessagesOf<Color>::ParseError());
  const HostText text(vxArrayToString(array));
  if (!text || *text == '\0')
    vxErrMsgId(component_VORTIL::component_vg::catalog_datatypes::key_OutOfMemory());
  return valueFromText<Color>(text.get());
}

/// Reads the first three elements of an array: fractions, or levels of which the low eight bits
/// count.
struct ChannelExecutor {
  Color3d color{0, 0, 0};

  template <class Traits>
  void run(const vxArray* array) {
    using Element = typename Traits::ElementType;
    const auto* const elements = static_cast<const Element*>(vxGetData(array));
    if constexpr (std::is_floating_point_v<Element>) {
      const Color4d fractions(elements[0], elements[1], elements[2], 1);
      validateRGBAColorRange(fractions.red(), fractions.green(), fractions.blue(),
                             fractions.alpha());
      keep(fractions);
    } else {
      const auto byte = [elements](int i) { return static_cast<std::uint8_t>(elements[i]); };
      keep(Color4b(byte(0), byte(1), byte(2), 255).asColor4d());
    }
  }
  [[noreturn]] void onError(vxClassID) { vxErrMsgId(real::ExpectedNumeric()); }

 private:
  void keep(const Color4d& found) { color = Color3d(found.red(), found.green(), found.blue()); }
};

/// What MarkerColor and MeshColor do alike, for an array that is not null.
template <class Color, class WrongCount>
COSValue valueFromArray(const vxArray* array) {
  if (vxGetClassID(array) == vxCHAR_CLASS) return valueFromCharArray<Color>(array);
  if (vxGetNumberOfElements(array) != 3) vxErrMsgId(WrongCount());
  ChannelExecutor executor;
  vg::TL::ArrayDispatcher<ChannelExecutor, vg::TL::Numeric>::dispatchHelper(
      array, ArrayDispatcherBase::getClassID(array), executor);
  const Color3d& color = executor.color;
  return COSValue::fromPointer(new Color(color.red(), color.green(), color.blue(), 1));
}

/// An RGBAColor of three or four fractions. The elements of a logical array are read as bytes,
/// since nothing keeps whoever writes them to 0 and 1.
template <class Element>
COSValue valueFromFractions(const vxArray* array) {
  const auto* const elements = static_cast<const Element*>(vxGetData(array));
  const std::size_t count = vxGetNumberOfElements(array);
  if (!elements || (count != 3 && count != 4))
    vxErrMsgIdAndTxt("VORTIL:vg:dt_conv:ValueMustBe3ElementVector", "%s",
                     "Color value must be a 3 element double vector");  // kept: four are accepted
  const auto channel = [elements](std::size_t i) -> double {
    if constexpr (std::is_floating_point_v<Element>)
      return elements[i];
    else
      return elements[i] == 0 ? 0 : 1;
  };
  return COSValue::fromPointer(
      new RGBAColor(channel(0), channel(1), channel(2), count == 4 ? channel(3) : 1));
}

/// Reports a comparison that throws. Kept, although no comparison of colours does.
template <class Message, class Compare>
bool guarded(Compare&& compare) {
  try {
    return compare();
  } catch (...) {
    vxErrMsgId(Message());
  }
}

}  // namespace

COSValue RGBAColorVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto* const given = array.asPointer<const vxArray>();
  switch (vxGetClassID(given)) {
    case vxCHAR_CLASS:
      return valueFromCharArray<RGBAColor>(given);
    case vxDOUBLE_CLASS:
      return valueFromFractions<double>(given);
    case vxLOGICAL_CLASS:
      return valueFromFractions<unsigned char>(given);
    default:
      vxErrMsgId(component_VORTIL::component_vg::catalog_dt_conv::key_ValueMustBe3Double());
  }
}

COSValue MarkerColorVC::from(COSValue array) const {
  if (array.isNull()) return array;
  using VORTIL::datatypes::MarkerColor::ValueMustBe3ElementVector;
  return valueFromArray<MarkerColor, ValueMustBe3ElementVector>(array.asPointer<const vxArray>());
}

/// Unlike MarkerColor, refuses null, and looks at the class before the number of elements.
COSValue MeshColorVC::from(COSValue array) const {
  const auto* const given = array.asPointer<const vxArray>();
  if (!given || (vxGetClassID(given) != vxCHAR_CLASS && !vg::isNumericClass(vxGetClassID(given))))
    vxErrMsgId(real::ExpectedNumeric1());
  return valueFromArray<MeshColor, VORTIL::datatypes::MeshColor::ValueMustBe3ElementVector>(given);
}

// --- Java ---------------------------------------------------------------------------------------

namespace {

constexpr const char* kJavaFile = "objects/StyledColors";

template <class Color>
COSValue colorFromComponents(const JavaObject& object) {
  const auto [red, green, blue, alpha] = object.components<4>();
  return COSValue::fromPointer(new Color(red, green, blue, alpha));
}

struct RGBAColorInJava {
  using Value = RGBAColor;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGColor"};
  static constexpr const char* kFile = kJavaFile;

  static COSValue ofNull() { return styledValue<RGBAColor>(ColorStyle::kNone); }
  static jobject toJava(const JavaClass& javaClass, const RGBAColor& c) {
    if (c.getStyle() == ColorStyle::kNone) return nullptr;
    return javaClass.create("(DDDD)V", c.getRed(), c.getGreen(), c.getBlue(), c.getAlpha());
  }
  static COSValue fromJava(const JavaObject& object) {
    return colorFromComponents<RGBAColor>(object);
  }
};

struct MarkerColorInJava {
  using Value = MarkerColor;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGStyledColor"};
  static constexpr const char* kFile = kJavaFile;
  static constexpr const char* kNullText = "Input parameter for marker color must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const MarkerColor& c) {
    JNIEnv& java = javaClass.java();
    const Place place(kFile);
    const auto& names = MarkerColorStyle::getInstance()->getEnumStrings();
    const auto newName = [&](std::size_t i) {
      return newAsciiString(java, names[i].c_str(), place);
    };
    const auto stringClass = findStringClass(java, place);
    const auto styles = newStringArray(java, stringClass.get(), names.size(), newName, place);
    if (c.getStyle() == MarkerColor::kNumeric)
      return javaClass.newInstance(
          "(DDDD[Ljava/lang/String;)Lcom/lindgrove/vg/types/VGStyledColor;", c.getRed(),
          c.getGreen(), c.getBlue(), c.getAlpha(), styles.get());
    const char* const word = wordOf(c);
    if (!word) raiseInvalidStyle(place, "MarkerColor", std::to_string(int{c.getStyle()}));
    const auto name = newAsciiString(java, word, place);
    return javaClass.newInstance(
        "(Ljava/lang/String;[Ljava/lang/String;)Lcom/lindgrove/vg/types/VGStyledColor;", name.get(),
        styles.get());
  }
  static COSValue fromJava(const JavaObject& object) {
    if (!object.truth("isStyle")) return colorFromComponents<MarkerColor>(object);
    const std::string name = object.text("getStyleName");
    const auto style = styleNamed<MarkerColor>(name.c_str());
    if (!style || style == MarkerColor::kNumeric)
      raiseInvalidStyle(Place(kFile), "MarkerColor", name);
    return styledValue<MarkerColor>(*style);
  }
};

struct MeshColorInJava {
  using Value = MeshColor;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGMeshColor"};
  static constexpr const char* kFile = kJavaFile;
  static constexpr const char* kNullText = "Input parameter for mesh color must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const MeshColor& c) {
    if (c.getStyle() != MeshColor::kNumeric)
      return javaClass.create("(II)V", jint{c.getStyle()}, jint{0});
    return javaClass.create("(DDDDI)V", c.getRed(), c.getGreen(), c.getBlue(), c.getAlpha(),
                            jint{0});
  }
  static COSValue fromJava(const JavaObject& object) {
    const auto style = styleIn<MeshColor>(object, "MeshColor");
    return style == MeshColor::kNumeric ? colorFromComponents<MeshColor>(object)
                                        : styledValue<MeshColor>(style);
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(RGBAColorJC, RGBAColorInJava)
VGDT_JAVA_CONVERSION(MarkerColorJC, MarkerColorInJava)
VGDT_JAVA_CONVERSION(MeshColorJC, MeshColorInJava)

// clang-format off

/// What the three types do alike.
#define VGDT_STYLED_COLOR(Type)                                                                 \
  template <>                                                                                   \
  struct PropertyTypeTraits<Type##DataType> : PlainValues<Type> {                               \
    static constexpr std::size_t kBytes = 40;                                                   \
    static_assert(sizeof(Type) == kBytes);                                                      \
  };                                                                                            \
  template class NamedDataType<Type##DataType>;                                                 \
  template class PropertyDataType<Type##DataType, Type>;                                        \
  bool Type##DataType::isEqual(COSValue a, COSValue b) const {                                  \
    return guarded<MessagesOf<Type>::IsEqual>([&] { return PropertyDataType::isEqual(a, b); }); \
  }                                                                                             \
  COSValue Type##SC::to(COSValue value) const { return textOf<Type>(value, newText); }          \
  COSValue Type##SC::from(COSValue text) const {                                                \
    return valueFromText<Type>(text.asPointer<const char>());                                   \
  }                                                                                             \
  COSValue Type##VC::to(COSValue value) const { return arrayOf<Type>(value, newArray); }        \
  VGDT_REGISTER_TYPE(Type, init_VortilGraphicsDatatype_##Type##DataType,                        \
                     init_VortilGraphicsDatatype_##Type##DataType_callback)
VGDT_STYLED_COLOR(RGBAColor)
VGDT_STYLED_COLOR(MarkerColor)
VGDT_STYLED_COLOR(MeshColor)
#undef VGDT_STYLED_COLOR

// clang-format on

}  // namespace graphics::datatype
