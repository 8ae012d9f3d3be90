// What filters write behind properties, and the sample classes that bind them.

#include "references/Samples.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/filters.h>
#include <graphics/datatype/property_helpers.h>
#include <vcos/COSPackage.h>

#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;
using Filters = Samples;
using SampleClasses = Samples;

/// An object with the properties that filters ask for, but for one. Modes are "auto" but for the
/// one that is named, which is null where "null " stands before its name.
COSInterfacePtr primitive(const std::string& without, const std::string& manual = "") {
  static const std::pair<std::string, const char*> kProperties[] = {
      {"ColorDataMode", "AutoManual"},
      {"ColorTypeMode", "AutoManual"},
      {"ColorBindingMode", "AutoManual"},
      {"ColorData_I", "PrimitiveColorData"},
      {"ColorType_I", "ColorType"},
      {"ColorBinding_I", "DataBinding"},
      {"Style_I", "PrimMarkerStyle"},
      {"LineStyle_I", "PrimLineStyle"},
      {"String_I", "NumericOrString"},
      {"_I", "AutoManual"},
      {"I_I", "AutoManual"}};
  static auto& classes = *new std::map<std::string, vcos::COSClass*>;
  vcos::COSClass*& made = classes[without];
  if (!made) {
    made = new vcos::COSClass("test.Primitive", nullptr);
    for (const auto& [name, type] : kProperties)
      if (name != without) made->addProperty(name.c_str(), accessOf(type).name());
  }
  const COSInterfacePtr object = made->createObject();
  if (manual.starts_with("null "))
    propertyOf(object, manual.substr(5)).setValue(object.get(), {});
  else if (!manual.empty())
    propertyOf(object, manual).setFromText(object.get(), "manual");
  return object;
}

/// The text of a value, or the numbers in its array; "-" where there is no such property.
std::string shown(const COSInterfacePtr& object, const std::string& name) {
  if (!object->findProperty(COSNameID(name.c_str()))) return "-";
  const vcos::COSPropInfo& property = propertyOf(object, name);
  const vcos::TypeAccess& access = property.getTypeAccess();
  const COSValue value = property.getValue(object.get());
  if (!name.starts_with("ColorData_")) return access.toText(value).value_or("null");
  return testing::PrintToString(numbersOf(access.toArray(value).get()));
}

/// The identifier that some work raises, and what its text has in quotation marks.
std::string errorOf(const std::function<void()>& work) {
  const std::string identifier = identifierRaisedBy(work);
  if (identifier.empty()) return "";
  const std::string text = lastError().text;
  const std::size_t begin = text.find('"') + 1;
  return identifier + " " + text.substr(begin, text.find('"', begin) - begin);
}
std::string missing(const std::string& name) {
  return name.empty() ? "" : "VORTIL:vg:ChildModePropNotFound " + name;
}

TEST_F(Filters, OfColorsWriteInOrderWhereAllModesAreAutomatic) {
  const auto red = [](double alpha, int style = ColorStyle::kColor) {
    RGBAColor color(1, 0, 0, alpha);
    color.setStyle(static_cast<ColorStyle::value>(style));
    return color;
  };
  const std::string kRed = "{ 255, 0, 0, 255 }";
  const std::string kHalf = "{ 255, 0, 0, 128 }";
  const std::string kNone = "{} colormapped none";
  const std::string kData = "ColorDataMode";
  const std::string kType = "ColorTypeMode";
  const std::string kBinding = "ColorBindingMode";
  const struct {
    std::string without, manual;
    RGBAColor color;
    std::string missed, written;          ///< by the filter of geometry
    std::string textMissed, textWritten;  ///< by that of texts
  } rows[] = {
      {"", "", red(1), "", kRed + " truecolor object", "", kRed},
      {"", "", red(0.5), "", kHalf + " truecoloralpha object", "", kHalf},
      {"", "", red(1, ColorStyle::kNone), "", "{ 0, 0, 0, 0 } truecoloralpha object", "", "{}"},
      {"", "", red(1, 7), "", kNone, "", "{}"},
      {"", kData, red(1), "", kNone, "", "{}"},
      {"", kType, red(1), "", kNone, "", kRed},
      {"", kBinding, red(1), "", kNone, "", kRed},
      {"", "null " + kData, red(1), "", kNone, "", "{}"},
      {kData, kType, red(1), kData, kNone, kData, "{}"},
      {kType, kData, red(1), "", kNone, "", "{}"},
      {kType, kBinding, red(1), kType, kNone, "", kRed},
      {kBinding, kType, red(1), "", kNone, "", kRed},
      {kBinding, "", red(1), kBinding, kNone, "", kRed},
      {"ColorData_I", "", red(1), "ColorData", "- colormapped none", "ColorData", "-"},
      {"ColorData_I", "", red(1, 7), "", "- colormapped none", "", "-"},
      {"ColorType_I", "", red(1), "ColorType", kRed + " - none", "", kRed},
      {"ColorBinding_I", "", red(1), "ColorBinding", kRed + " truecolor -", "", kRed},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const COSInterfacePtr object = primitive(row.without, row.manual);
    EXPECT_EQ(errorOf([&] { filter_RGBAColorToGeometryPrimitive(object.get(), &row.color); }),
              missing(row.missed));
    EXPECT_EQ(shown(object, "ColorData_I") + " " + shown(object, "ColorType_I") + " " +
                  shown(object, "ColorBinding_I"),
              row.written);
    const COSInterfacePtr text = primitive(row.without, row.manual);
    EXPECT_EQ(errorOf([&] { filter_RGBAColorToTextPrimitive(text.get(), &row.color); }),
              missing(row.textMissed));
    EXPECT_EQ(shown(text, "ColorData_I"), row.textWritten);
  }
}

TEST_F(Filters, OfStylesAndTextsNameThePropertyThatIsMissing) {
  const COSInterfacePtr object = primitive("");
  filter_MarkerStyleToPrimMarkerStyle(object.get(), MarkerStyle(MarkerStyle::kTriangle));
  EXPECT_EQ(shown(object, "Style_I"), "downtriangle");
  filter_MarkerStyleToPrimMarkerStyle(object.get(), MarkerStyle(MarkerStyle::value(14)));
  EXPECT_EQ(shown(object, "Style_I"), "none");
  filter_LineStyleToPrimLineStyle(object.get(), LineStyle(LineStyle::kDashdot));
  EXPECT_EQ(shown(object, "LineStyle_I"), "dashdot");
  const NumericOrString text("two");
  EXPECT_EQ(errorOf([] { filter_MarkerStyleToPrimMarkerStyle(primitive("Style_I").get(), {}); }),
            missing("Style"));
  EXPECT_EQ(errorOf([] { filter_LineStyleToPrimLineStyle(primitive("LineStyle_I").get(), {}); }),
            missing("LineStyle"));
  EXPECT_EQ(
      errorOf([&] { filter_NumericOrStringToTextPrimitive(primitive("String_I").get(), text); }),
      "VORTIL:vg:ChildPropNotFound String");
}

TEST_F(Filters, FindThePropertyBehindOne) {
  const AutoManual manual(AutoManual::kManual);
  const auto set = [&](const COSInterfacePtr& object, const char* name) {
    set_on_uddprop(object.get(), name, COSValue::fromPointer(&manual));
  };
  const std::pair<const char*, const char*> names[] = {
      {"_I", "_I"}, {"", "_I"}, {"I", "I_I"}, {"I_I", "I_I"}};
  for (const auto& [given, behind] : names) {
    const COSInterfacePtr object = primitive("");
    set(object, given);
    for (const std::string each : {"_I", "I_I"})
      EXPECT_EQ(prop_is_auto(object.get(), each.c_str()), each != behind) << given;
    EXPECT_EQ(errorOf([&, name = given] { set(primitive("I_I"), name); }),
              behind == std::string("_I") ? "" : missing(given));
  }
  EXPECT_EQ(errorOf([] { prop_is_auto(primitive("").get(), "Mode"); }), missing("Mode"));
}

TEST_F(SampleClasses, UseEveryTypeOfTheLibrary) {
  std::set<std::string> unused;
  const COSNameID package("vortil.graphics.datatype");
  for (const auto* type : vcos::COSPackage::getPackage(package)->getDataTypes())
    unused.insert(type->getName());
  EXPECT_GT(unused.size(), 100U);
  for (const auto* each : sample::classes())
    for (const COSInterfacePtr& property : each->properties())
      unused.erase(
          vcos::COSPropInfoPtr(property).getObject()->getTypeAccess().dataType().getName());
  EXPECT_THAT(unused, testing::IsEmpty());
}

TEST_F(SampleClasses, HaveWhatScriptsRelyOn) {
  const std::string kAll = " Parent:HandleOrEmpty Tag:string";
  const std::string kMost = kAll + " Interruptible:on_off=on BusyAction:BusyAction=queue";
  const std::string kColors =
      kMost +
      " Color:RGBAColor ColorData:PrimitiveColorData ColorData_I:PrimitiveColorData"
      " ColorDataMode:AutoManual";
  const std::string kGeometry =
      kColors +
      " ColorType:ColorType ColorType_I:ColorType ColorBinding:DataBinding"
      " ColorBinding_I:DataBinding ColorTypeMode:AutoManual ColorBindingMode:AutoManual";
  const std::pair<std::string, std::string> rows[] = {
      {"vortil.ui.Root", kAll},
      {"vortil.ui.Figure", kMost + " IntegerHandle:on_off=on Units:Units Position:Position"
                                   " Color:RGBAColor CurrentObject:HandleOrEmpty"},
      {"vortil.graphics.Axes", kMost},
      {"vortil.graphics.Line", kMost + " Color:RGBAColor LineStyle:LineStyle Marker:MarkerStyle"
                                       " XData:VectorData YData:VectorData"},
      {"vortil.graphics.Patch", kMost},
      {"vortil.graphics.Surface", kMost},
      {"vortil.graphics.Image", kMost},
      {"vortil.graphics.Text", kMost},
      {"vortil.graphics.Light", kAll},
      {"vortil.graphics.TextPrimitive",
       kColors + " String:NumericOrString String_I:NumericOrString"},
      {"vortil.graphics.LinePrimitive",
       kGeometry + " LineStyle:LineStyle LineStyle_I:PrimLineStyle"},
      {"vortil.graphics.MarkerPrimitive", kGeometry + " Style:MarkerStyle Style_I:PrimMarkerStyle"},
      {"vortil.Plain", kAll},
  };
  for (const auto& [name, properties] : rows) {
    SCOPED_TRACE(name);
    const std::size_t dot = name.rfind('.');
    const COSNameID package(name.substr(0, dot).c_str());
    const COSNameID leaf(name.substr(dot + 1).c_str());
    const vcos::COSClass* const found = sample::findClass(name);
    EXPECT_EQ(sample::findClass(leaf.c_str()), found);
    EXPECT_EQ(vcos::COSPackage::getPackage(package)->getClass(leaf), found);
    EXPECT_EQ(found->isA(COSNameID("vg2utils.VGHandle")), name != "vortil.Plain");
    const COSInterfacePtr object = found->createObject();
    std::istringstream words(properties);
    for (std::string word; words >> word;) {
      const std::size_t colon = word.find(':');
      const std::size_t equals = word.find('=');
      const std::string property = word.substr(0, colon);
      EXPECT_EQ(propertyOf(object, property).getTypeAccess().dataType().getName(),
                word.substr(colon + 1, equals - colon - 1));
      if (equals == word.npos) continue;
      EXPECT_EQ(shown(object, property), word.substr(equals + 1)) << property;
    }
  }
  EXPECT_EQ(sample::findClass("Primitive"), nullptr) << "it is abstract";
  for (const char* without : {"Root", "Light"})
    EXPECT_FALSE(sampleObject(without)->findProperty(COSNameID("BusyAction"))) << without;
}

TEST_F(SampleClasses, RunTheFiltersOfPrimitives) {
  const char* const rows[][5] = {
      {"LinePrimitive", "LineStyle", "--", "LineStyle_I", "dashed"},
      {"LinePrimitive", "Color", "red", "ColorData_I", "{ 255, 0, 0, 255 }"},
      {"MarkerPrimitive", "Style", "^", "Style_I", "triangle"},
      {"MarkerPrimitive", "Color", "none", "ColorType_I", "truecoloralpha"},
      {"TextPrimitive", "Color", "blue", "ColorData_I", "{ 0, 0, 255, 255 }"},
  };
  for (const auto& [className, property, text, behind, written] : rows) {
    const COSInterfacePtr object = sampleObject(className);
    propertyOf(object, property).setFromText(object.get(), text);
    EXPECT_EQ(shown(object, behind), written) << className << property;
    propertyOf(object, property).setValue(object.get(), {});
    EXPECT_EQ(shown(object, behind), written) << "null is not filtered";
  }
  const COSInterfacePtr text = sampleObject("TextPrimitive");
  propertyOf(text, "String").setFromArray(text.get(), scalar(2.5).get());
  const auto& behind = propertyOf(text, "String_I");
  const ArrayOwner lines = behind.getTypeAccess().toArray(behind.getValue(text.get()));
  EXPECT_EQ(vxArrayToStdString(lines.get()), "2.5");
}

}  // namespace
