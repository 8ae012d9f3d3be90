#include "NewArray.h"
#include "NumericArrays.h"
#include "TypeRegistration.h"

#include <graphics/datatype/BoundingVolumeDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using gui_objects::BoundingVolume;
using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::datatypes::BoundingVolumeDataType;

template <>
struct PropertyTypeTraits<BoundingVolumeDataType> : PlainValues<BoundingVolume> {
  static constexpr std::size_t kBytes = 56;  // kept, whatever the host's class takes
  static bool isEqual(const BoundingVolume& a, const BoundingVolume& b) {
    return a.getCenter() == b.getCenter() && a.getXWidth() == b.getXWidth() &&
           a.getYWidth() == b.getYWidth() && a.getZWidth() == b.getZWidth();
  }
};
template class NamedDataType<BoundingVolumeDataType>;
template class PropertyDataType<BoundingVolumeDataType, BoundingVolume>;

namespace {

using Values = PropertyTypeTraits<BoundingVolumeDataType>;

/// Minimum and maximum of each axis, in the class of the array: large integers do not become
/// doubles before they are compared. NaN passes.
struct OrderedBounds {
  bool operator()(const auto& bounds) const {
    return !(bounds[1] < bounds[0] || bounds[3] < bounds[2] || bounds[5] < bounds[4]);
  }
};

using Reader = ArrayReader<double, 6, isMatrix<2, 3>, OrderedBounds,
                           ArrayErrors<messages::ArrayClass, messages::ArrayShape,
                                       messages::ArrayNull, messages::InvalidWidth>>;

}  // namespace

COSValue BoundingVolumeVC::to(COSValue value) const {
  return arrayOfValue<BoundingVolume>(value, [](const BoundingVolume& v) {
    return newMatrix<2>(
        {v.getXMin(), v.getXMax(), v.getYMin(), v.getYMax(), v.getZMin(), v.getZMax()});
  });
}

COSValue BoundingVolumeVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const auto [xMin, xMax, yMin, yMax, zMin, zMax] =
      Reader::numbersIn(array.asPointer<const vxArray>());
  try {
    return COSValue::fromPointer(Values::create(gui_objects::Point3d{xMin, yMin, zMin},
                                                gui_objects::Point3d{xMax, yMax, zMax}));
  } catch (const gui_objects::InvalidWidthException&) {
    raise<messages::InvalidWidth>();
  }
}

COSValue BoundingVolumeSC::to(COSValue value) const {
  return textOfValue<BoundingVolume>(value, "", [](const BoundingVolume& v) {
    NumberText<6> text;
    text << "[ " << v.getXMin() << " " << v.getYMin() << " " << v.getZMin() << " ; ";
    text << v.getXMax() << " " << v.getYMax() << " " << v.getZMax() << " ]";
    return text.newText();
  });
}

COSValue BoundingVolumeSC::from(COSValue text) const {
  BoundingVolume volume;
  try {
    volume = convert::parse_2x3_double(text.asPointer<const char>());
  } catch (const convert::ParseException&) {
    // The default stays.
  }
  return COSValue::fromPointer(Values::create(volume));
}

VGDT_REGISTER_TYPE(BoundingVolume, init_VortilGraphicsDatatype_BoundingVolumeDataType,
                   init_VortilGraphicsDatatype_BoundingVolumeDataType_callback)

}  // namespace graphics::datatype
