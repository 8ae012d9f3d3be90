#pragma once

#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>
#include <vx/array.h>

namespace graphics::datatype {

/// The type "ColorTable", by which the host reads and extends the colour names of the process. It
/// holds no data: a property of this type is a door to the ColorNameTable.
///
///     const vcos::COSValue names = ColorTableVC().to({});  // a struct, one field for each name
///     vxDestroyArray(names.asPointer<vxArray>());
///
/// Kept: the operations below take their words for host arrays, although ColorTableVC::from gives
/// another kind of pointer. Nobody may copy or destroy what it gives, and the class system does
/// neither with the words of a type of 0 bytes.
class VGDT_API ColorTableDataType final : public NamedDataType<ColorTableDataType> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.ColorTable";

  /// An empty double array, made at the first call; it is nobody's to destroy.
  vcos::COSValue getDefaultValue() const override;
  /// Whether the words are the same.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  /// A shared copy of a host array; null for null.
  vcos::COSValue copy(vcos::COSValue value) const override;
  /// Destroys a host array; nothing for null.
  void destroy(vcos::COSValue value) const override;
};

/// The type has no text form: both operations give null.
class VGDT_API ColorTableSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and the ColorNameTable.
class VGDT_API ColorTableVC final : public vcos::COSTypeConversion {
 public:
  /// As getColorTableAsArray(), whatever the word.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Adds a colour name for each field of a struct, or replaces the colour of the name: its first
  /// three numbers are red, green and blue, of any range. A field that holds no real double array
  /// of three or more elements is skipped. Any other array, and null, changes nothing. Gives the
  /// pointer to the ColorNameTable. A std::bad_alloc is all that it throws, and changes nothing.
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// A struct with a field for each colour name, in the order of the table: 1-by-3 double, red, green
/// and blue. It belongs to the caller and stands in no array-list context.
///
/// Errors: those of failed memory; "VORTIL:host:TooManyFields" beyond 2147483647 names.
VGDT_API vxArray* getColorTableAsArray();

/// Between a reference to a host array in Java and a word.
class VGDT_API ColorTableJC final : public ArrayJavaConverter<ColorTableVC> {};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_ColorTableDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_ColorTableDataType_callback();

}  // namespace graphics::datatype
