#include <graphics/datatype/filters.h>
#include <graphics/datatype/property_helpers.h>
#include <graphics/datatype/shaped_types.h>
#include <graphics/datatype/style_mapping.h>
#include <messages/catalog.h>
#include <vcos/COSClass.h>
#include <vx/errors.h>

namespace graphics::datatype {

using vcos::COSInterface;
using vcos::COSValue;

namespace {

/// Sets the property behind one to a value of its type.
template <class Value>
void setBehind(COSInterface* object, const char* name, const Value& value) {
  set_on_uddprop(object, name, COSValue::fromPointer(&value));
}

PrimitiveColorData bytesOf(const RGBAColor& color) {
  return PrimitiveColorData(color.getColorAsArray().get());
}

RGBAColor invisible() {
  RGBAColor color;
  color.setAlpha(0);
  return color;
}

}  // namespace

void filter_MarkerStyleToPrimMarkerStyle(COSInterface* object, const MarkerStyle& style) {
  setBehind(object, "Style", convertMarkerStyleToPrimMarkerStyle(style));
}

void filter_LineStyleToPrimLineStyle(COSInterface* object, const LineStyle& style) {
  setBehind(object, "LineStyle", convertLineStyleToPrimLineStyle(style));
}

void filter_RGBAColorToTextPrimitive(COSInterface* object, const RGBAColor* color) {
  if (!prop_is_auto(object, "ColorDataMode")) return;
  if (color->getStyle() != ColorStyle::kColor) return;
  setBehind(object, "ColorData", bytesOf(*color));
}

void filter_RGBAColorToGeometryPrimitive(COSInterface* object, const RGBAColor* color) {
  for (const char* mode : {"ColorDataMode", "ColorTypeMode", "ColorBindingMode"})
    if (!prop_is_auto(object, mode)) return;
  const bool isNone = color->getStyle() == ColorStyle::kNone;
  if (!isNone && color->getStyle() != ColorStyle::kColor) return;
  const RGBAColor shown = isNone ? invisible() : *color;
  const ColorType type(shown.getAlpha() >= 1 ? ColorType::kTruecolor : ColorType::kTruecoloralpha);
  setBehind(object, "ColorData", bytesOf(shown));
  setBehind(object, "ColorType", type);
  setBehind(object, "ColorBinding", DataBinding(DataBinding::kObject));
}

void filter_NumericOrStringToTextPrimitive(COSInterface* object, const NumericOrString& value) {
  const vcos::COSInterfacePtr found = object->findProperty(vcos::COSNameID("String_I"));
  vcos::COSPropInfo* const property = vcos::COSPropInfoPtrHelper().getObject(found);
  if (!property) vxErrMsgId(component_VORTIL::catalog_vg::key_ChildPropNotFound("String"));
  property->setValue(object, COSValue::fromPointer(&value));
}

}  // namespace graphics::datatype
