// DataBounds and LimitsWithInfs in Java: two limits look like a point with x and y.

#include "JavaDetour.h"
#include "ShapedArrayJavaConverter.h"

#include <graphics/datatype/Point2dDataType.h>
#include <graphics/datatype/limits.h>
#include <graphics/datatype/shaped_types.h>

namespace graphics::datatype {

using vcos::COSValue;

namespace {

constexpr const char* kPoint = "com.lindgrove.vg.types.VGPoint";

const JavaDetour& dataBounds() {
  static const JavaDetour detour(DataBoundsDataType::kDottedName, Point2dDataType::kDottedName);
  return detour;
}

const JavaDetour& limitsWithInfs() {
  static const JavaDetour detour(LimitsWithInfsDataType::kDottedName, Point2dDataType::kDottedName);
  return detour;
}

}  // namespace

COSValue DataBoundsJavaConverter::to(COSValue value) const {
  return value.isNull() ? value : dataBounds().to(value);
}
COSValue DataBoundsJavaConverter::from(COSValue object) const {
  return object.isNull() ? object : dataBounds().from(object);
}
const char* DataBoundsJavaConverter::getJavaDeclarationName() {
  return kPoint;
}

/// Kept: infinite limits, which no array of a Point2d has, cross since no array is made of them.
COSValue LimitsWithInfsJavaConverter::to(COSValue value) const {
  if (value.isNull()) return value;
  double limits[2] = {};
  getLim(limits, *value.asPointer<const LimitsWithInfs>());
  gui_objects::Point2d point{limits[0], limits[1]};
  return limitsWithInfs().viaJava().to(COSValue::fromPointer(&point));
}
COSValue LimitsWithInfsJavaConverter::from(COSValue object) const {
  return object.isNull() ? object : limitsWithInfs().from(object);
}
const char* LimitsWithInfsJavaConverter::getJavaDeclarationName() {
  return kPoint;
}

}  // namespace graphics::datatype
