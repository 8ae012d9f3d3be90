// What filters write behind properties, and the sample classes that bind them.

#include "references/Samples.h"
#include "support/Outcomes.h"

#include <gmock/gmock.h>
#include <graphics/datatype/filters.h>
#include <graphics/datatype/property_helpers.h>
#include <vcos/COSPackage.h>

#include <deque>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace {

using namespace test;
using namespace graphics::datatype;
using Filters = Samples;
using SampleClasses = Samples;

/// An object with the properties that filters ask for, but for one. Modes are "auto" but for the
/// one that is named.
COSInterfacePtr primitive(const std::string& without, const std::string& manual = "") {
  static std::deque<vcos::COSClass> classes;
  vcos::COSClass& made = classes.emplace_back("test.Primitive", nullptr);
  for (const auto& [name, type] : {std::pair("ColorDataMode", "AutoManual"),
                                   {"ColorTypeMode", "AutoManual"},
                                   {"ColorBindingMode", "AutoManual"},
                                   {"ColorData_I", "PrimitiveColorData"},
                                   {"ColorType_I", "ColorType"},
                                   {"ColorBinding_I", "DataBinding"},
                                   {"_I", "AutoManual"},
                                   {"I_I", "AutoManual"}})
    if (name != without) made.addProperty(name, accessOf(type).name());
  COSInterfacePtr object = made.createObject();
  if (!manual.empty()) propertyOf(object, manual).setFromText(object.get(), "manual");
  return object;
}

/// The text of a value, or the numbers in its array; "-" where there is no such property.
std::string shown(const COSInterfacePtr& object, const std::string& name) {
  if (!object->findProperty(COSNameID(name.c_str()))) return "-";
  const vcos::COSPropInfo& property = propertyOf(object, name);
  const vcos::TypeAccess& access = property.getTypeAccess();
  const COSValue value = property.getValue(object.get());
  if (!name.starts_with("ColorData_")) return textOrError(access, value).value_or("null");
  return testing::PrintToString(numbersOf(access.toArray(value).get()));
}

/// The property that is missing, as the error that some work raises says in quotation marks.
std::string missedBy(const auto& work, const char* identifier = "ChildModePropNotFound") {
  const std::string raised = identifierRaisedBy(work);
  if (raised.empty()) return "";
  EXPECT_EQ(shortIdentifier(raised), identifier);
  const std::string text = lastError().text;
  const std::size_t begin = text.find('"') + 1;
  return text.substr(begin, text.find('"', begin) - begin);
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
      {"", kBinding, red(1), "", kNone, "", kRed},
      {kData, kType, red(1), kData, kNone, kData, "{}"},
      {kType, kData, red(1), "", kNone, "", "{}"},
      {kType, kBinding, red(1), kType, kNone, "", kRed},
      {kBinding, kType, red(1), "", kNone, "", kRed},
      {kBinding, "", red(1), kBinding, kNone, "", kRed},
      {"ColorData_I", "", red(1), "ColorData", "- colormapped none", "ColorData", "-"},
      {"ColorType_I", "", red(1), "ColorType", kRed + " - none", "", kRed},
      {"ColorBinding_I", "", red(1), "ColorBinding", kRed + " truecolor -", "", kRed},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const COSInterfacePtr object = primitive(row.without, row.manual);
    EXPECT_EQ(missedBy([&] { filter_RGBAColorToGeometryPrimitive(object.get(), &row.color); }),
              row.missed);
    EXPECT_EQ(shown(object, "ColorData_I") + " " + shown(object, "ColorType_I") + " " +
                  shown(object, "ColorBinding_I"),
              row.written);
    const COSInterfacePtr text = primitive(row.without, row.manual);
    EXPECT_EQ(missedBy([&] { filter_RGBAColorToTextPrimitive(text.get(), &row.color); }),
              row.textMissed);
    EXPECT_EQ(shown(text, "ColorData_I"), row.textWritten);
  }
}

TEST_F(Filters, FindThePropertyBehindOneOrNameIt) {
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
    const COSInterfacePtr without = primitive(behind);
    EXPECT_EQ(missedBy([&, name = given] { set(without, name); }), given);
  }
  const COSInterfacePtr object = primitive("");
  propertyOf(object, "_I").setValue(object.get(), {});
  EXPECT_FALSE(prop_is_auto(object.get(), "_I")) << "null";
  EXPECT_EQ(missedBy([&] { prop_is_auto(object.get(), "Mode"); }), "Mode");
  EXPECT_EQ(missedBy([&] { filter_MarkerStyleToPrimMarkerStyle(object.get(), {}); }), "Style");
  EXPECT_EQ(missedBy([&] { filter_LineStyleToPrimLineStyle(object.get(), {}); }), "LineStyle");
  const auto setText = [&] { filter_NumericOrStringToTextPrimitive(object.get(), {}); };
  EXPECT_EQ(missedBy(setText, "ChildPropNotFound"), "String");
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
  std::string names;
  for (const auto* each : sample::classes()) {
    EXPECT_EQ(sample::findClass(each->getName()), each);
    const bool isPlain = each->getName() == std::string("vortil.Plain");
    EXPECT_NE(each->isA(COSNameID("vg2utils.VGHandle")), isPlain);
    names += std::string(" ") + each->getName();
  }
  const std::string kPrimitives = "LinePrimitive MarkerPrimitive";
  const std::string kMost = "Figure Axes Line Patch Surface Image Text TextPrimitive Plain ";
  const std::pair<std::string, const char*> rows[] = {
      {kMost + "Root Light " + kPrimitives, "Parent:HandleOrEmpty Tag:string"},
      {kMost + kPrimitives, "Interruptible:on_off=on BusyAction:BusyAction=queue"},
      {"Figure",
       "IntegerHandle:on_off=on Units:Units Position:Position CurrentObject:HandleOrEmpty"},
      {"Figure Line TextPrimitive " + kPrimitives, "Color:RGBAColor"},
      {"Line", "LineStyle:LineStyle Marker:MarkerStyle XData:VectorData YData:VectorData"},
      {"TextPrimitive", "String:NumericOrString String_I:NumericOrString"},
      {"TextPrimitive " + kPrimitives,
       "ColorData:PrimitiveColorData ColorData_I:PrimitiveColorData ColorDataMode:AutoManual"},
      {kPrimitives, "ColorType:ColorType ColorType_I:ColorType ColorTypeMode:AutoManual"},
      {kPrimitives, "ColorBinding:DataBinding ColorBinding_I:DataBinding"},
      {kPrimitives, "ColorBindingMode:AutoManual"},
      {"LinePrimitive", "LineStyle:LineStyle LineStyle_I:PrimLineStyle"},
      {"MarkerPrimitive", "Style:MarkerStyle Style_I:PrimMarkerStyle"},
  };
  for (const auto& [owners, properties] : rows) {
    std::istringstream classes(owners);
    for (std::string owner; classes >> owner;) {
      const COSInterfacePtr object = sampleObject(owner);
      std::istringstream words(properties);
      for (std::string word; words >> word;) {
        const std::string name = word.substr(0, word.find(':'));
        const auto& type = propertyOf(object, name).getTypeAccess().dataType();
        EXPECT_THAT(name + ":" + type.getName() + "=" + shown(object, name),
                    testing::StartsWith(word))
            << owner;
      }
    }
  }
  EXPECT_EQ(names,
            " vortil.ui.Root vortil.ui.Figure vortil.graphics.Axes vortil.graphics.Line"
            " vortil.graphics.Patch vortil.graphics.Surface vortil.graphics.Image"
            " vortil.graphics.Text vortil.graphics.Light vortil.graphics.TextPrimitive"
            " vortil.graphics.LinePrimitive vortil.graphics.MarkerPrimitive"
            " vortil.graphics.TrianglePrimitive vortil.Plain");
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
  propertyOf(text, "String").setFromText(text.get(), "two");
  const auto& behind = propertyOf(text, "String_I");
  const ArrayOwner lines = behind.getTypeAccess().toArray(behind.getValue(text.get()));
  EXPECT_EQ(vxArrayToStdString(lines.get()), "two");
}

}  // namespace
