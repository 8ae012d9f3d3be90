// Point2, Point2d, Point3, PositivePoint3 and Rectangle2: the values are objects of the host's own
// geometric classes.

#include "JavaObjects.h"
#include "NewArray.h"
#include "NumericArrays.h"
#include "TypeRegistration.h"

#include <graphics/datatype/Point2DataType.h>
#include <graphics/datatype/Point2dDataType.h>
#include <graphics/datatype/Point3DataType.h>
#include <graphics/datatype/PositivePoint3DataType.h>
#include <graphics/datatype/Rectangle2DataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>

namespace graphics::datatype {

using gui_objects::Point2d;
using gui_objects::Point2i;
using gui_objects::Point3d;
using gui_objects::Rectangle2i;
using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::datatypes;

namespace {

/// A value equals itself, also where it is NaN.
template <class Value>
struct SelfEqualValues : PlainValues<Value> {
  static bool isEqual(const Value& a, const Value& b) { return &a == &b || a == b; }
};

}  // namespace

template <>
struct PropertyTypeTraits<Point2DataType> : SelfEqualValues<Point2i> {
  static constexpr std::size_t kBytes = 8;
  static_assert(sizeof(Point2i) == kBytes);
};
template class NamedDataType<Point2DataType>;
template class PropertyDataType<Point2DataType, Point2i>;

template <>
struct PropertyTypeTraits<Point2dDataType> : SelfEqualValues<Point2d> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(Point2d) == kBytes);
};
template class NamedDataType<Point2dDataType>;
template class PropertyDataType<Point2dDataType, Point2d>;

template <>
struct PropertyTypeTraits<Point3DataType> : SelfEqualValues<Point3d> {
  static constexpr std::size_t kBytes = 24;
  static_assert(sizeof(Point3d) == kBytes);
};
template class NamedDataType<Point3DataType>;
template class PropertyDataType<Point3DataType, Point3d>;

template <>
struct PropertyTypeTraits<PositivePoint3DataType> : SelfEqualValues<Point3d> {
  static constexpr std::size_t kBytes = 24;
  static_assert(sizeof(Point3d) == kBytes);
  static Point3d* createDefault() { return create(1.0, 1.0, 1.0); }
};
template class NamedDataType<PositivePoint3DataType>;
template class PropertyDataType<PositivePoint3DataType, Point3d>;

template <>
struct PropertyTypeTraits<Rectangle2DataType>
    : GuardedValues<Rectangle2i, gui_objects::RectangleCrossedPointsException,
                    VORTIL::InsetDataType::RectangleCrossedPointsException> {
  static constexpr std::size_t kBytes = 16;
  static_assert(sizeof(Rectangle2i) == kBytes);
};
template class NamedDataType<Rectangle2DataType>;
template class PropertyDataType<Rectangle2DataType, Rectangle2i>;

namespace {

struct Expected3ElementVector {
  static constexpr const char* kIdentifier = "VORTIL:vg:set_chck:Expected3ElementVector";
  static constexpr const char* kText = "Value must be a 3 element numeric vector.";
};
struct ExpectedFinite {
  static constexpr const char* kIdentifier =
      "VORTIL:vg:set_chck:Matrix_to_3element_Vector_set_check_fcn:ExpectedFinite";
  static constexpr const char* kText = "Input values must be finite numbers.";
};

using Point2Reader = ArrayReader<
    int, 2, hasElements<2>, AnyNumbers,
    ArrayErrors<messages::Point2DataType::ArrayClass, messages::Point2DataType::ArrayShape,
                messages::Point2DataType::ArrayNull>>;
using Point2dReader = ArrayReader<
    double, 2, hasElements<2>, FiniteNumbers,
    ArrayErrors<messages::Point2dDataType::ArrayClass, messages::Point2dDataType::ArrayShape,
                messages::Point2dDataType::ArrayNull, messages::Point2dDataType::ArrayData>>;
template <class Test, class... MoreErrors>
using ThreeReader = ArrayReader<double, 3, hasElements<3>, Test,
                                ArrayErrors<Expected3ElementVector, Expected3ElementVector,
                                            messages::Point3DataType::ArrayNull, MoreErrors...>>;
using Point3Reader = ThreeReader<FiniteNumbers, ExpectedFinite>;
using PositivePoint3Reader =
    ThreeReader<FinitePositiveNumbers, messages::PositivePoint3DataType::ExpectedFinitePositive>;
/// For the texts of both.
using Point3TextReader = ThreeReader<AnyNumbers, void, messages::Point3DataType::UnknownException>;
using Rectangle2Reader = ArrayReader<
    int, 4, isMatrix<1, 4>, AnyNumbers,
    ArrayErrors<messages::Rectangle2DataType::ArrayClass, messages::Rectangle2DataType::ArrayShape,
                messages::Rectangle2DataType::ArrayNull>>;

COSValue arrayOfPoint3(COSValue value) {
  return arrayOfValue<Point3d>(value, [](const Point3d& p) {
    return newMatrix<1>({p.x, p.y, p.z});
  });
}

COSValue point3FromText(COSValue text) {
  const auto [x, y, z] = convert::parse_1x3_double(text.asPointer<const char>());
  return COSValue::fromPointer(PropertyTypeTraits<Point3DataType>::create(x, y, z));
}

}  // namespace

COSValue Point2VC::to(COSValue value) const {
  return arrayOfValue<Point2i>(value, [](const Point2i& p) {
    return newMatrix<1, double>({double(p.x), double(p.y)});
  });
}
COSValue Point2VC::from(COSValue array) const {
  return valueFromArray<Point2DataType, Point2Reader>(array);
}
COSValue Point2SC::to(COSValue value) const {
  return textOfValue<Point2i>(value, "[0 0]", [](const Point2i& p) {
    return newRowText({p.x, p.y});
  });
}
COSValue Point2SC::from(COSValue text) const {
  const auto [x, y] = convert::parse_1x2_double(text.asPointer<const char>());
  return COSValue::fromPointer(
      PropertyTypeTraits<Point2DataType>::create(Point2d{x, y}.asPoint2i()));
}

COSValue Point2dVC::to(COSValue value) const {
  return arrayOfValue<Point2d>(value, [](const Point2d& p) { return newMatrix<1>({p.x, p.y}); });
}
COSValue Point2dVC::from(COSValue array) const {
  return valueFromArray<Point2dDataType, Point2dReader>(array);
}
COSValue Point2dSC::to(COSValue array) const {
  return textFromArray<Point2dReader>(array);
}
COSValue Point2dSC::from(COSValue text) const {
  const auto [x, y] = convert::parse_1x2_double(text.asPointer<const char>());
  return COSValue::fromPointer(PropertyTypeTraits<Point2dDataType>::create(x, y));
}

COSValue Point3VC::to(COSValue value) const {
  return arrayOfPoint3(value);
}
COSValue Point3VC::from(COSValue array) const {
  return valueFromArray<Point3DataType, Point3Reader>(array);
}
COSValue Point3SC::to(COSValue array) const {
  return textFromArray<Point3TextReader>(array);
}
COSValue Point3SC::from(COSValue text) const {
  return point3FromText(text);
}

COSValue PositivePoint3VC::to(COSValue value) const {
  return arrayOfPoint3(value);
}
COSValue PositivePoint3VC::from(COSValue array) const {
  return valueFromArray<PositivePoint3DataType, PositivePoint3Reader>(array);
}
COSValue PositivePoint3SC::to(COSValue array) const {
  return textFromArray<Point3TextReader>(array);
}
/// Kept: unlike the array conversion, asks for no positive numbers.
COSValue PositivePoint3SC::from(COSValue text) const {
  try {
    return point3FromText(text);
  } catch (const convert::ParseException&) {
    return {};
  }
}

COSValue Rectangle2VC::to(COSValue value) const {
  return arrayOfValue<Rectangle2i>(value, [](const Rectangle2i& r) {
    return newMatrix<1, double>(
        {double(r.getXMin()), double(r.getYMin()), double(r.getXMax()), double(r.getYMax())});
  });
}
COSValue Rectangle2VC::from(COSValue array) const {
  return valueFromArray<Rectangle2DataType, Rectangle2Reader>(array);
}
COSValue Rectangle2SC::to(COSValue value) const {
  return textOfValue<Rectangle2i>(value, "[0 0 0 0]", [](const Rectangle2i& r) {
    return newRowText({r.getXMin(), r.getYMin(), r.getXMax(), r.getYMax()});
  });
}
COSValue Rectangle2SC::from(COSValue text) const {
  const auto [a, b, c, d] = convert::parse_1x4_double(text.asPointer<const char>());
  return COSValue::fromPointer(PropertyTypeTraits<Rectangle2DataType>::create(
      truncated(a), truncated(b), truncated(c), truncated(d)));
}

// --- Java ---------------------------------------------------------------------------------------

namespace {

struct Point2InJava {
  using Value = Point2i;
  static constexpr JavaName kClass{"java.awt.Point"};
  static constexpr const char* kFile = "objects/Points";
  static constexpr const char* kNullText = "Input parameter for Point2 must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const Point2i& p) {
    return javaClass.create("(II)V", jint{p.x}, jint{p.y});
  }
  /// Kept: what goes out as whole numbers comes back through getters of doubles.
  static COSValue fromJava(const JavaObject& object) {
    const Point2d point{object.number("getX"), object.number("getY")};
    return COSValue::fromPointer(PropertyTypeTraits<Point2DataType>::create(point.asPoint2i()));
  }
};

struct Point2dInJava {
  using Value = Point2d;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGPoint"};
  static constexpr const char* kFile = "objects/Points";
  static constexpr const char* kNullText = "Input parameter for Point2d must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const Point2d& p) {
    return javaClass.create("(DD)V", p.x, p.y);
  }
  static COSValue fromJava(const JavaObject& object) {
    const auto [x, y] = object.components<2>();
    return COSValue::fromPointer(PropertyTypeTraits<Point2dDataType>::create(x, y));
  }
};

struct Point3InJava {
  using Value = Point3d;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGPoint3"};
  static constexpr const char* kFile = "objects/Points";
  static constexpr const char* kNullText = "Input parameter for Point3 must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const Point3d& p) {
    return javaClass.create("(DDD)V", p.x, p.y, p.z);
  }
  static COSValue fromJava(const JavaObject& object) {
    const auto [x, y, z] = object.components<3>();
    return COSValue::fromPointer(PropertyTypeTraits<Point3DataType>::create(x, y, z));
  }
};

/// Kept: nothing asks for positive numbers on this way.
struct PositivePoint3InJava : Point3InJava {
  static constexpr const char* kNullText = "Input parameter for PositivePoint3 must not be NULL ";
};

struct Rectangle2InJava {
  using Value = Rectangle2i;
  static constexpr JavaName kClass{"java.awt.Rectangle"};
  static constexpr const char* kFile = "objects/Points";
  static constexpr const char* kNullText = "Input parameter for Rectangle2 must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const Rectangle2i& r) {
    return javaClass.create("(IIII)V", jint{r.getXMin()}, jint{r.getYMin()}, jint{r.getWidth()},
                            jint{r.getHeight()});
  }
  /// Kept: a size goes out, and the far corner that comes back is taken as a size.
  static COSValue fromJava(const JavaObject& object) {
    return COSValue::fromPointer(PropertyTypeTraits<Rectangle2DataType>::create(
        truncated(object.number("getMinX")), truncated(object.number("getMinY")),
        truncated(object.number("getMaxX")), truncated(object.number("getMaxY"))));
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(Point2JC, Point2InJava)
VGDT_JAVA_CONVERSION(Point2dJC, Point2dInJava)
VGDT_JAVA_CONVERSION(Point3JC, Point3InJava)
VGDT_JAVA_CONVERSION(PositivePoint3JC, PositivePoint3InJava)
VGDT_JAVA_CONVERSION(Rectangle2JC, Rectangle2InJava)

VGDT_REGISTER_TYPE(Point2, init_VortilGraphicsDatatype_Point2DataType,
                   init_VortilGraphicsDatatype_Point2DataType_callback)
VGDT_REGISTER_TYPE(Point2d, init_VortilGraphicsDatatype_Point2dDataType,
                   init_VortilGraphicsDatatype_Point2dDataType_callback)
VGDT_REGISTER_TYPE(Point3, init_VortilGraphicsDatatype_Point3DataType,
                   init_VortilGraphicsDatatype_Point3DataType_callback)
VGDT_REGISTER_TYPE(PositivePoint3, init_VortilGraphicsDatatype_PositivePoint3DataType,
                   init_VortilGraphicsDatatype_PositivePoint3DataType_callback)
VGDT_REGISTER_TYPE(Rectangle2, init_VortilGraphicsDatatype_Rectangle2DataType,
                   init_VortilGraphicsDatatype_Rectangle2DataType_callback)

}  // namespace graphics::datatype
