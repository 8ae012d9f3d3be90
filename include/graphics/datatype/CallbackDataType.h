#pragma once

#include <callback/VCallback.h>
#include <graphics/datatype/AbstractJavaConverter.h>
#include <graphics/datatype/PropertyDataType.h>
#include <vcos/COSTypeConversion.h>

namespace graphics::datatype {

/// The type "Callback", what runs when an event is fired: null by default, which is no callback.
/// Values are the host's VCallback: code, a function handle, or a cell array with one of these in
/// front and its arguments behind.
///
///     const vcos::COSValue value = CallbackSC().from(vcos::COSValue::fromPointer("redraw"));
///     const gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
///         CallbackVC().to(value).asPointer<vxArray>());  // 'redraw'
///     CallbackDataType::getType()->destroy(value);
class VGDT_API CallbackDataType final : public PropertyDataType<CallbackDataType, VCallback> {
 public:
  static constexpr const char* kDottedName = "vortil.graphics.datatype.Callback";

  static CallbackDataType* getType();

  /// As VCallback::isEqual(); null equals null and empty code.
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
};

/// Between a C string and a word.
class VGDT_API CallbackSC final : public vcos::COSTypeConversion {
 public:
  vcos::COSValue to(vcos::COSValue value) const override;  ///< null: a callback has no text form
  /// A callback of a string of code. A failure, as for null, raises
  /// "VORTIL:datatypes:callback:CreateCallback".
  vcos::COSValue from(vcos::COSValue text) const override;
};

/// Between a host array and a word.
class VGDT_API CallbackVC final : public vcos::COSTypeConversion {
 public:
  /// The form of the callback as an array of the caller's; an empty char array for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Null for null. An array that is no callback, and any other failure, raises
  /// "VORTIL:datatypes:callback:CreateCallback".
  vcos::COSValue from(vcos::COSValue array) const override;
};

/// Between a Java object of class com.lindgrove.vg.types.VGCallback and a word.
class VGDT_API CallbackJC final : public AbstractJavaConverter {
 public:
  /// Its text is the code, or the function or the cell array as a literal. Null for null.
  vcos::COSValue to(vcos::COSValue value) const override;
  /// Takes what CallbackVC takes behind a reference; null gives null.
  vcos::COSValue from(vcos::COSValue object) const override;
  const char* getJavaDeclarationName() override;
};

/// Queues the registration of the type; runs at load.
VGDT_API bool init_VortilGraphicsDatatype_CallbackDataType();
/// Registers the type; does nothing if it is known.
VGDT_API void init_VortilGraphicsDatatype_CallbackDataType_callback();

}  // namespace graphics::datatype
