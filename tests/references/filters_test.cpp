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
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;

using Filters = Samples;

/// An object with the properties that filters ask for, but for one. Modes are "auto" unless they
/// are named, or null where "null " stands before the name.
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
  static std::map<std::string, vcos::COSClass*> classes;
  vcos::COSClass*& made = classes[without];
  if (!made) {
    made = new vcos::COSClass("test.Primitive", nullptr);
    for (const auto& [name, type] : kProperties)
      if (name != without) made->addProperty(name.c_str(), accessOf(type).name());
  }
  const COSInterfacePtr object = made->createObject();
  const std::size_t blank = manual.find(' ');
  if (blank != manual.npos)
    propertyOf(object, manual.c_str() + blank + 1).setValue(object.get(), {});
  else if (!manual.empty())
    propertyOf(object, manual.c_str()).setFromText(object.get(), "manual");
  return object;
}

RGBAColor red(double alpha, ColorStyle::value style = ColorStyle::kColor) {
  RGBAColor color(1, 0, 0, alpha);
  color.setStyle(style);
  return color;
}

/// What some work raises, the identifier and what the text has in quotation marks, or "".
std::string errorOf(const std::function<void()>& work) {
  const std::string identifier = identifierRaisedBy(work);
  if (identifier.empty()) return "";
  const std::string text = lastError().text;
  const std::size_t begin = text.find('"') + 1;
  return identifier + " " + text.substr(begin, text.find('"', begin) - begin);
}
const std::string kMissing = "VORTIL:vg:ChildModePropNotFound ";

TEST_F(Filters, OfColorsWriteInOrderWhereAllModesAreAutomatic) {
  const std::string kRed = "{ 255, 0, 0, 255 }";
  const std::string kNothing = "{}";
  const std::string kUntouched = "{} colormapped none";
  const std::string kData = "ColorDataMode";
  const std::string kType = "ColorTypeMode";
  const std::string kBinding = "ColorBindingMode";
  const RGBAColor opaque = red(1);
  const auto other = static_cast<ColorStyle::value>(7);
  const struct {
    std::string without, manual;
    RGBAColor color;
    std::string written;      ///< by the filter of geometry
    std::string missing;      ///< the property that it misses
    std::string textWritten;  ///< by the filter of texts
    std::string textMissing = "";
  } rows[] = {
      {"", "", opaque, kRed + " truecolor object", "", kRed},
      {"", "", red(0.5), "{ 255, 0, 0, 128 } truecoloralpha object", "", "{ 255, 0, 0, 128 }"},
      {"", "", red(0), "{ 255, 0, 0, 0 } truecoloralpha object", "", "{ 255, 0, 0, 0 }"},
      {"", "", red(1, ColorStyle::kNone), "{ 0, 0, 0, 0 } truecoloralpha object", "", kNothing},
      {"", "", red(1, other), kUntouched, "", kNothing},
      {"", kData, opaque, kUntouched, "", kNothing},
      {"", kType, opaque, kUntouched, "", kRed},
      {"", kBinding, opaque, kUntouched, "", kRed},
      {"", "null " + kData, opaque, kUntouched, "", kNothing},
      {kData, kType, opaque, kUntouched, kData, kNothing, kData},
      {kType, kData, opaque, kUntouched, "", kNothing},
      {kType, kBinding, opaque, kUntouched, kType, kRed},
      {kBinding, kType, opaque, kUntouched, "", kRed},
      {kBinding, "", opaque, kUntouched, kBinding, kRed},
      {"ColorData_I", "", opaque, "- colormapped none", "ColorData", "-", "ColorData"},
      {"ColorData_I", "", red(1, other), "- colormapped none", "", "-"},
      {"ColorType_I", "", opaque, kRed + " - none", "ColorType", kRed},
      {"ColorBinding_I", "", opaque, kRed + " truecolor -", "ColorBinding", kRed},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const auto show = [&](const COSInterfacePtr& object, const char* name) {
      return row.without == name ? "-" : shown(object, name);
    };
    const COSInterfacePtr object = primitive(row.without, row.manual);
    const std::string error =
        errorOf([&] { filter_RGBAColorToGeometryPrimitive(object.get(), &row.color); });
    EXPECT_EQ(error, row.missing.empty() ? "" : kMissing + row.missing);
    EXPECT_EQ(show(object, "ColorData_I") + " " + show(object, "ColorType_I") + " " +
                  show(object, "ColorBinding_I"),
              row.written);
    const COSInterfacePtr text = primitive(row.without, row.manual);
    const std::string textError =
        errorOf([&] { filter_RGBAColorToTextPrimitive(text.get(), &row.color); });
    EXPECT_EQ(textError, row.textMissing.empty() ? "" : kMissing + row.textMissing);
    EXPECT_EQ(show(text, "ColorData_I"), row.textWritten);
  }
}

TEST_F(Filters, OfStylesAndTextsWriteWhatPrimitivesTake) {
  const COSInterfacePtr object = primitive("");
  const std::pair<MarkerStyle::value, const char*> markers[] = {
      {MarkerStyle::kPyramid, "triangle"},
      {MarkerStyle::kTriangle, "downtriangle"},
      {static_cast<MarkerStyle::value>(14), "none"}};
  for (const auto& [marker, name] : markers) {
    filter_MarkerStyleToPrimMarkerStyle(object.get(), MarkerStyle(marker));
    EXPECT_EQ(shown(object, "Style_I"), name);
  }
  const std::pair<LineStyle::value, const char*> lines[] = {
      {LineStyle::kDashdot, "dashdot"}, {static_cast<LineStyle::value>(-1), "solid"}};
  for (const auto& [line, name] : lines) {
    filter_LineStyleToPrimLineStyle(object.get(), LineStyle(line));
    EXPECT_EQ(shown(object, "LineStyle_I"), name);
  }
  const NumericOrString text(array("1x3 char", {'a', '\n', 'b'}).get());
  filter_NumericOrStringToTextPrimitive(object.get(), text);
  EXPECT_EQ(*propertyOf(object, "String_I").getValue(object.get()).asPointer<NumericOrString>(),
            text);
  EXPECT_EQ(errorOf([] { filter_MarkerStyleToPrimMarkerStyle(primitive("Style_I").get(), {}); }),
            kMissing + "Style");
  EXPECT_EQ(errorOf([] { filter_LineStyleToPrimLineStyle(primitive("LineStyle_I").get(), {}); }),
            kMissing + "LineStyle");
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
    EXPECT_TRUE(prop_is_auto(object.get(), behind));
    set(object, given);
    EXPECT_FALSE(prop_is_auto(object.get(), behind)) << given;
    const std::string other = behind == std::string("_I") ? "I_I" : "_I";
    EXPECT_TRUE(prop_is_auto(object.get(), other.c_str())) << given;
    EXPECT_EQ(errorOf([&, name = given] { set(primitive(behind), name); }), kMissing + given);
  }
  EXPECT_FALSE(prop_is_auto(primitive("", "null _I").get(), "_I"));
  EXPECT_EQ(errorOf([] { prop_is_auto(primitive("").get(), "Mode"); }), kMissing + "Mode");
}

using SampleClasses = Samples;

TEST_F(SampleClasses, UseEveryTypeOfTheLibrary) {
  std::set<std::string> unused;
  for (const auto* type :
       vcos::COSPackage::getPackage(COSNameID("vortil.graphics.datatype"))->getDataTypes())
    unused.insert(type->getName());
  EXPECT_GT(unused.size(), 100U);
  for (const auto* each : sample::classes())
    for (const COSInterfacePtr& property : each->properties()) {
      const auto& type = *vcos::COSPropInfoPtr(property).getObject()->getDataType().getObject();
      unused.erase(type.getName());
    }
  EXPECT_THAT(unused, testing::IsEmpty());
}

TEST_F(SampleClasses, HaveWhatScriptsRelyOn) {
  const std::string kAll = " Parent:HandleOrEmpty Tag:string";
  const std::string kMost = kAll + " Interruptible:on_off=on BusyAction:BusyAction=queue";
  const std::string kColors =
      " Color:RGBAColor ColorData:PrimitiveColorData ColorData_I:PrimitiveColorData"
      " ColorDataMode:AutoManual";
  const std::string kGeometry =
      kMost + kColors +
      " ColorType:ColorType ColorType_I:ColorType ColorBinding:DataBinding"
      " ColorBinding_I:DataBinding ColorTypeMode:AutoManual ColorBindingMode:AutoManual";
  const std::pair<const char*, std::string> rows[] = {
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
       kMost + kColors + " String:NumericOrString String_I:NumericOrString"},
      {"vortil.graphics.LinePrimitive",
       kGeometry + " LineStyle:LineStyle LineStyle_I:PrimLineStyle"},
      {"vortil.graphics.MarkerPrimitive", kGeometry + " Style:MarkerStyle Style_I:PrimMarkerStyle"},
      {"vortil.Plain", kAll},
  };
  for (const auto& [name, properties] : rows) {
    SCOPED_TRACE(name);
    const std::string full = name;
    const std::size_t dot = full.rfind('.');
    const vcos::COSClass* const found = sample::findClass(full);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(sample::findClass(full.substr(dot + 1)), found);
    vcos::COSPackage* const package =
        vcos::COSPackage::getPackage(COSNameID(full.substr(0, dot).c_str()));
    EXPECT_EQ(package->getClass(COSNameID(full.substr(dot + 1).c_str())), found);
    EXPECT_EQ(found->isA(COSNameID("vg2utils.VGHandle")), full != "vortil.Plain");
    const COSInterfacePtr object = found->createObject();
    std::istringstream words(properties);
    for (std::string word; words >> word;) {
      const std::size_t colon = word.find(':');
      const std::size_t equals = word.find('=');
      const std::string property = word.substr(0, colon);
      ASSERT_TRUE(object->findProperty(COSNameID(property.c_str()))) << property;
      const auto& access = propertyOf(object, property.c_str()).getTypeAccess();
      EXPECT_EQ(access.dataType().getName(), word.substr(colon + 1, equals - colon - 1));
      if (equals == word.npos) continue;
      EXPECT_EQ(shown(object, property.c_str()), word.substr(equals + 1)) << property;
    }
  }
  for (const char* isAbstract : {"VGHandle", "Primitive", "vortil.graphics.Interruptible"})
    EXPECT_EQ(sample::findClass(isAbstract), nullptr);
  for (const char* without : {"Root", "Light"})
    EXPECT_FALSE(sampleObject(without)->findProperty(COSNameID("BusyAction"))) << without;
}

TEST_F(SampleClasses, RunTheFiltersOfPrimitives) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
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
