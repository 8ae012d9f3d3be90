#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// The enumerated types as callers know them, written by hand: never made from the rows that the
/// library is stamped from.
namespace test {

/// In the order in which the possible values are listed.
using NamesAndValues = std::vector<std::pair<std::string, int>>;

inline NamesAndValues namesAndValues(const char* text) {
  NamesAndValues result;
  std::istringstream words(text);
  std::string name;
  for (int value = 0; words >> name >> value;)
    result.emplace_back(name, value);
  return result;
}

struct EnumeratedType {
  EnumeratedType(const char* ownName, const char* ownDefault, const char* ownNames)
      : name(ownName),
        defaultName(ownDefault),
        names(namesAndValues(ownNames)) {}

  std::string name;
  std::string defaultName;
  NamesAndValues names;

  /// Of the host type behind its table.
  std::string tableName() const {
    const std::string table = name == "VG1DrawStyle" ? "VG1BaseDrawStyle" : name + "Style";
    return "vortil.graphics.enumstyletypes." + table;
  }
};

inline const std::vector<EnumeratedType> kEnumeratedTypes = {
    {"ActivePosition", "position", "position 0 outerposition 1"},
    {"AlphaDataMapping", "none", "none 0 scaled 1 direct 2"},
    {"AutoManual", "auto", "auto 0 manual 1"},
    {"AxesBox", "full", "full 0 back 1"},
    {"AxisClipping", "off", "off 0 on 1 3d 2"},
    {"AxisDirection", "normal", "normal 0 reverse 1"},
    {"AxisScale", "linear", "linear 0 log 1"},
    {"AxisTopBottom", "bottom", "bottom 0 top 1"},
    {"AxisYLocation", "left", "left 0 right 1"},
    {"BackFaceCulling", "none", "none 0 front 1 back 2"},
    {"BackFaceLighting", "reverselit", "reverselit 0 unlit 1 lit 2"},
    {"BusyAction", "queue", "queue 0 cancel 1"},
    {"CDataMapping", "scaled", "scaled 0 direct 1"},
    {"ColorbarCDataMapping", "scaled", "none 0 scaled 1 direct 2 direct0based 3"},
    {"ColorType", "colormapped", "colormapped 0 truecolor 1 truecoloralpha 2 texturemapped 3"},
    {"DataBinding", "none", "none 0 object 1 discrete 2 interpolated 3"},
    {"EraseMode", "normal", "normal 0 xor 1 background 2 none 3"},
    {"FontAngle", "normal", "normal 0 italic 1 oblique 2"},
    {"FontUnits", "inches", "inches 0 centimeters 1 normalized 2 points 3 pixels 4"},
    {"FontWeight", "light", "light 0 normal 1 demi 2 bold 3"},
    {"GridMajorMinor", "major", "major 0 majorandminor 1 minor 2"},
    {"HandleVisibility", "on", "on 0 callback 1 off 2"},
    {"VG1DrawStyle", "normal", "normal 0 fast 1"},
    {"HorizontalAlignment", "left", "left 0 center 1 right 2"},
    {"Lighting", "none", "none 0 flat 1 gouraud 2 phong 3"},
    {"LightStyle", "infinite", "infinite 0 local 1 ambient 2"},
    {"LimitSpec", "stretch", "stretch 0 tight 1"},
    {"LineStyle", "-", "- 0 -- 1 : 2 -. 3 none 4"},
    {"MarkerStyle", "none",
     "+ 0 o 1 * 2 . 3 x 4 square 5 diamond 6 v 7 ^ 8 > 9 < 10 pentagram 11 hexagram 12 none 13"},
    {"NextPlot", "new", "new 0 add 1 replace 2 replacechildren 3"},
    {"OrderLayer", "middle", "middle 0 back 1 front 2"},
    {"PaperUnits", "inches", "inches 0 centimeters 1 normalized 2 points 3"},
    {"Pickable", "whenvisible", "whenvisible 0 always 1 never 2"},
    {"PrimLineStyle", "solid", "solid 0 dashed 1 dotted 2 dashdot 3 none 4"},
    {"PrimMarkerStyle", "none",
     "plus 0 circle 1 asterisk 2 point 3 x 4 square 5 diamond 6 downtriangle 7 triangle 8 "
     "righttriangle 9 lefttriangle 10 pentagram 11 hexagram 12 none 13"},
    {"Projection", "orthographic", "orthographic 0 perspective 1"},
    {"RenderEngineType", "painters", "painters 1 zbuffer 2 opengl 3"},
    {"SortMethod", "depth", "depth 0 childorder 1"},
    {"StretchToFill", "all", "all 0 horizontal 1 vertical 2"},
    {"StringBinding", "copy", "copy 0 slice 1 slice2d 2"},
    {"TextInterpreter", "none", "none 0 tex 1 latex 2"},
    {"TextureColorType", "truecolor", "truecolor 0 truecoloralpha 1"},
    {"TickDir", "in", "in 0 out 1 both 2"},
    {"Units", "inches", "inches 0 centimeters 1 characters 5 normalized 2 points 3 pixels 4"},
    {"UnitsWithData", "inches",
     "inches 0 centimeters 1 characters 2 normalized 3 points 4 pixels 5 data 6"},
    {"VerticalAlignment", "baseline", "baseline 0 top 1 cap 2 middle 3 bottom 4"},
};

}  // namespace test
