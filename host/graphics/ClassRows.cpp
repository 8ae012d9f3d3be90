#include "ClassRows.h"

#include <graphics/datatype/filters.h>

namespace sample {
namespace {

using namespace graphics::datatype;

/// A filter that takes a reference to the value, as a hook.
template <class Value, void (*filter)(vcos::COSInterface*, const Value&)>
void runFilter(vcos::COSInterface* object, vcos::COSValue value) {
  if (!value.isNull()) filter(object, *value.asPointer<const Value>());
}

/// One that takes a pointer.
template <void (*filter)(vcos::COSInterface*, const RGBAColor*)>
void runFilter(vcos::COSInterface* object, vcos::COSValue value) {
  if (!value.isNull()) filter(object, value.asPointer<const RGBAColor>());
}

constexpr PropertyRow kObject[] = {
    {"Parent", "HandleOrEmpty"}, {"Tag", "string"},       {"OnCreate", "Callback"},
    {"OnDelete", "Callback"},    {"OnPress", "Callback"}, {"OnNotify", "Callback"},
    {"OnUrgent", "Callback"},
};

/// Those of all objects.
constexpr EventRow kEvents[] = {
    {"Create", "OnCreate", false}, {"Delete", "OnDelete", false},
    {"Press", "OnPress", true},    {"Notify", "OnNotify", true, vcos::COSEventKind::OfClass},
    {"Urgent", "OnUrgent", false},
};

/// All but the root and the lights.
constexpr PropertyRow kInterruptible[] = {
    {"Interruptible", "on_off", "on"},
    {"BusyAction", "BusyAction", "queue"},
};

constexpr PropertyRow kRoot[] = {
    {"ColorNames", "ColorTable"}, {"FigureInFront", "COSInterface"},  {"PointerPosition", "Point2"},
    {"Screen", "Rectangle2"},     {"ScreenUnits", "Units", "pixels"},
};

constexpr PropertyRow kFigure[] = {
    {"IntegerHandle", "on_off", "on"},
    {"Units", "Units"},
    {"Position", "Position"},
    {"Color", "RGBAColor"},
    {"CurrentObject", "HandleOrEmpty"},
    {"ColorRamp", "ColorMap"},
    {"AlphaRamp", "AlphaMap"},
    {"WindowPosition", "ScreenPosition"},
    {"PageUnits", "PaperUnits"},
    {"PageSize", "Point2d"},
    {"Engine", "RenderEngineType"},
    {"WhenPlotting", "NextPlot"},
    {"Peer", "JavaPeer"},
    {"Shown", "HandleVisibility"},
    {"Caption", "UTF16String"},
    {"ShortcutName", "CaseInsensitiveString"},
};

constexpr PropertyRow kAxes[] = {
    {"Units", "Units"},
    {"Position", "Position"},
    {"Placement", "ActivePosition"},
    {"Margin", "Inset"},
    {"Frame", "AxesBox"},
    {"View", "AxesView"},
    {"Clipping", "AxisClipping"},
    {"Projection", "Projection"},
    {"Stretching", "StretchToFill"},
    {"Layer", "OrderLayer"},
    {"Sorting", "SortMethod"},
    {"LineColors", "ColorOrder"},
    {"LineStyles", "NLineStyles"},
    {"XLimits", "Limits"},
    {"YLimits", "LimitsWithInfs"},
    {"LimitChoice", "LimitSpec"},
    {"LimitMode", "AutoManual"},
    {"XDirection", "AxisDirection"},
    {"XScale", "AxisScale"},
    {"XSide", "AxisTopBottom"},
    {"YSide", "AxisYLocation"},
    {"Ticks", "Tick"},
    {"TickLabels", "NStrings"},
    {"TickSide", "TickDir"},
    {"TickSize", "TickLength"},
    {"Grid", "GridMajorMinor"},
    {"GridStyle", "LineStyle"},
    {"BackColor", "RGBAColor"},
    {"BarMapping", "ColorbarCDataMapping"},
    {"Transform", "Matrix4x4"},
    {"CameraPosition", "Point3"},
    {"Proportions", "PositivePoint3"},
    {"Extent", "DataBounds"},
};

constexpr PropertyRow kLine[] = {
    {"Color", "RGBAColor"},         {"LineStyle", "LineStyle"}, {"Marker", "MarkerStyle"},
    {"XData", "VectorData"},        {"YData", "VectorData"},    {"Width", "Positive"},
    {"MarkerColor", "MarkerColor"}, {"Erasing", "EraseMode"},   {"Pickable", "Pickable"},
};

/// How a surface of any kind is lit and drawn.
constexpr PropertyRow kSkin[] = {
    {"FaceColor", "MeshColor"},           {"FaceAlpha", "MeshAlpha"},
    {"EdgeColor", "MeshColor"},           {"Lighting", "Lighting"},
    {"BackLighting", "BackFaceLighting"}, {"AmbientShare", "LightingStrength"},
    {"ColorMapping", "CDataMapping"},     {"AlphaMapping", "AlphaDataMapping"},
};

constexpr PropertyRow kPatch[] = {
    {"Faces", "PatchFaces"},
    {"Vertices", "PatchVertices"},
    {"Normals", "PatchNormals"},
    {"VertexColors", "PatchFaceVertexCData"},
    {"VertexAlphas", "PatchFaceVertexAlphaData"},
};

constexpr PropertyRow kSurface[] = {
    {"XData", "SurfaceXYData"},           {"YData", "SurfaceXYData"},
    {"ZData", "NumericMatrix"},           {"Colors", "SurfaceCData"},
    {"Alphas", "NumericOrLogicalMatrix"}, {"Normals", "SurfaceVertexNormals"},
};

constexpr PropertyRow kImage[] = {
    {"XData", "ImageXYData"},         {"YData", "ImageXYData"}, {"Pixels", "Numeric2D3DMatrix"},
    {"ColorMapping", "CDataMapping"}, {"Palette", "NColorPtr"},
};

constexpr PropertyRow kText[] = {
    {"String", "TextString"},
    {"Position", "TextPosition"},
    {"PositionUnits", "UnitsWithData"},
    {"Color", "RGBAColor"},
    {"Font", "FontName"},
    {"FontUnits", "FontUnits"},
    {"FontSize", "Positive"},
    {"FontAngle", "FontAngle"},
    {"FontWeight", "FontWeight"},
    {"Horizontal", "HorizontalAlignment"},
    {"Vertical", "VerticalAlignment"},
    {"Interpreter", "TextInterpreter"},
};

constexpr PropertyRow kLight[] = {
    {"Style", "LightStyle"},
    {"Position", "Point3"},
    {"Color", "RGBAColor"},
};

/// What all primitives have for whoever draws them.
constexpr PropertyRow kPrimitive[] = {
    {"Bounds", "BoundingVolume"},
    {"VertexData", "PrimitiveVertexData"},
    {"VertexIndices", "PrimitiveVertexIndices"},
    {"StripData", "PrimitiveStripData"},
};

/// The colours of a primitive with vertices.
constexpr PropertyRow kGeometryColor[] = {
    {"Color", "RGBAColor", nullptr, runFilter<filter_RGBAColorToGeometryPrimitive>},
    {"ColorData", "PrimitiveColorData"},
    {"ColorData_I", "PrimitiveColorData"},
    {"ColorType", "ColorType"},
    {"ColorType_I", "ColorType"},
    {"ColorBinding", "DataBinding"},
    {"ColorBinding_I", "DataBinding"},
    {"ColorDataMode", "AutoManual"},
    {"ColorTypeMode", "AutoManual"},
    {"ColorBindingMode", "AutoManual"},
};

constexpr PropertyRow kTextPrimitive[] = {
    {"Color", "RGBAColor", nullptr, runFilter<filter_RGBAColorToTextPrimitive>},
    {"ColorData", "PrimitiveColorData"},
    {"ColorData_I", "PrimitiveColorData"},
    {"ColorDataMode", "AutoManual"},
    {"String", "NumericOrString", nullptr,
     runFilter<NumericOrString, filter_NumericOrStringToTextPrimitive>},
    {"String_I", "NumericOrString"},
    {"StringBinding", "StringBinding"},
};

constexpr PropertyRow kLinePrimitive[] = {
    {"LineStyle", "LineStyle", nullptr, runFilter<LineStyle, filter_LineStyleToPrimLineStyle>},
    {"LineStyle_I", "PrimLineStyle"},
    {"Bend", "Curvature"},
};

constexpr PropertyRow kMarkerPrimitive[] = {
    {"Style", "MarkerStyle", nullptr, runFilter<MarkerStyle, filter_MarkerStyleToPrimMarkerStyle>},
    {"Style_I", "PrimMarkerStyle"},
    {"MixedColors", "CompositeColorData"},
};

constexpr PropertyRow kTrianglePrimitive[] = {
    {"Culling", "BackFaceCulling"},        {"Normals", "PrimitiveNormalsData"},
    {"VertexColors", "PrimitiveRGBAData"}, {"Texture", "TextureColorData"},
    {"TextureType", "TextureColorType"},   {"OldStyle", "VG1DrawStyle"},
};

}  // namespace

std::span<const EventRow> eventRows() {
  return kEvents;
}

const std::vector<ClassRow>& classRows() {
  static const std::vector<ClassRow> rows = {
      {"vg2utils.VGHandle", "", {kObject}, true},
      {"vortil.ui.Root", "vg2utils.VGHandle", {kRoot}},
      {"vortil.graphics.Interruptible", "vg2utils.VGHandle", {kInterruptible}, true},
      {"vortil.ui.Figure", "vortil.graphics.Interruptible", {kFigure}},
      {"vortil.graphics.Axes", "vortil.graphics.Interruptible", {kAxes}},
      {"vortil.graphics.Line", "vortil.graphics.Interruptible", {kLine}},
      {"vortil.graphics.Patch", "vortil.graphics.Interruptible", {kSkin, kPatch}},
      {"vortil.graphics.Surface", "vortil.graphics.Interruptible", {kSkin, kSurface}},
      {"vortil.graphics.Image", "vortil.graphics.Interruptible", {kImage}},
      {"vortil.graphics.Text", "vortil.graphics.Interruptible", {kText}},
      {"vortil.graphics.Light", "vg2utils.VGHandle", {kLight}},
      {"vortil.graphics.Primitive", "vortil.graphics.Interruptible", {kPrimitive}, true},
      {"vortil.graphics.TextPrimitive", "vortil.graphics.Primitive", {kTextPrimitive}},
      {"vortil.graphics.LinePrimitive",
       "vortil.graphics.Primitive",
       {kGeometryColor, kLinePrimitive}},
      {"vortil.graphics.MarkerPrimitive",
       "vortil.graphics.Primitive",
       {kGeometryColor, kMarkerPrimitive}},
      {"vortil.graphics.TrianglePrimitive",
       "vortil.graphics.Primitive",
       {kGeometryColor, kTrianglePrimitive}},
      {"vortil.Plain", "", {kObject, kInterruptible}},
  };
  return rows;
}

}  // namespace sample
