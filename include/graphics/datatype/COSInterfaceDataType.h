#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "COSInterface", a reference to an object: null by default. Its words are pointers to
/// objects of the class system, each with one count of its own:
///
///     vcos::COSDataType& type = *COSInterfaceDataType::getType();
///     const vcos::COSValue kept = type.copy(vcos::COSValue::fromPointer(object));
///     type.destroy(kept);
class VGDT_API COSInterfaceDataType final : public NamedDataType<COSInterfaceDataType> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.COSInterface";

  vcos::COSValue getDefaultValue() const override;  ///< null
  /// Whether both are the same object.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  /// The same object, with one more count; null for null.
  vcos::COSValue copy(vcos::COSValue value) const override;
  /// Gives the count up; nothing for null.
  void destroy(vcos::COSValue value) const override;
};

/// The type has no text form: both operations give null.
class VGDT_API COSInterfaceSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API COSInterfaceVC final : public vcos::COSTypeConversion {
 public:
  /// A 1-by-1 array of the object, of its own class. A composite of two or more becomes a row of
  /// class "handle"; null the empty array of that class. It is the caller's.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// The first element of an object array, with a count of its own. Kept: for an array of class
  /// double it is the object that the first number stands for, without a count of its own. Null for
  /// every other array, for null, and for a number that names nothing.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a reference to a host array in Java and a word.
class VGDT_API COSInterfaceJC final : public ArrayJavaConverter<COSInterfaceVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_COSInterfaceDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_COSInterfaceDataType_callback();

}  // namespace graphics::datatype
