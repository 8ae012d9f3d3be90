#include "JavaObjects.h"
#include "NewArray.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/CallbackDataType.h>
#include <messages/catalog.h>
#include <vx/errors.h>
#include <vx/literal.h>

namespace graphics::datatype {

using vcos::COSValue;

template <>
struct PropertyTypeTraits<CallbackDataType> : PlainValues<VCallback> {
  static constexpr std::size_t kBytes = 56;  // kept: whatever size the host's callback has

  static VCallback* createDefault() { return nullptr; }
  static bool isEqual(const VCallback& a, const VCallback& b) { return a.isEqual(&b); }
};
template class NamedDataType<CallbackDataType>;
template class PropertyDataType<CallbackDataType, VCallback>;

namespace {

template <class Make>
COSValue made(Make&& make) {
  try {
    return COSValue::fromPointer(make());
  } catch (...) {
    vxErrMsgId(VORTIL::datatypes::callback::CreateCallback());
  }
}

const VCallback& emptyCallback() {
  static const COSValue empty = CallbackSC().from(COSValue::fromPointer(""));
  return *empty.asPointer<const VCallback>();
}

}  // namespace

CallbackDataType* CallbackDataType::getType() {
  return static_cast<CallbackDataType*>(NamedDataType::getType());
}

bool CallbackDataType::isEqual(COSValue a, COSValue b) const {
  if (a.isNull() == b.isNull()) return PropertyDataType::isEqual(a, b);
  const COSValue other = a.isNull() ? b : a;
  return emptyCallback().isEqual(other.asPointer<const VCallback>());
}

COSValue CallbackSC::to(COSValue) const {
  return {};
}
COSValue CallbackSC::from(COSValue text) const {
  return made([text] { return VCallback::createFromString(text.asPointer<const char>()); });
}

COSValue CallbackVC::to(COSValue value) const {
  return COSValue::fromPointer(
      value.isNull() ? vxCreateString("")
                     : value.asPointer<const VCallback>()->convertToVortilArray(true));
}
COSValue CallbackVC::from(COSValue array) const {
  if (array.isNull()) return {};
  return made([array] { return new VCallback(array.asPointer<const vxArray>()); });
}

namespace {

/// What people read of a callback: its code, or the function or the cell array as the host prints
/// it.
gui_objects::UTF16String displayText(const vxArray* callback) {
  if (vxGetClassID(callback) == vxCHAR_CLASS) return unitsIn(callback);
  return fl::i18n::to_ustring(vghost::formatLiteral(callback));
}

struct CallbackInJava {
  using Value = VCallback;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGCallback"};
  static constexpr const char* kFile = "objects/Callback";

  static COSValue ofNull() { return {}; }
  static jobject toJava(const JavaClass& javaClass, const VCallback& callback) {
    JNIEnv& java = javaClass.java();
    const ArrayPtr array(callback.convertToVortilArray(true));
    const auto text = newJavaString(java, displayText(array.get()), Place(kFile));
    const Local<> reference(
        java, hostArrayConversion().to(COSValue::fromPointer(array.get())).asPointer<_jobject>());
    return javaClass.create("(Ljava/lang/String;Lcom/lindgrove/jvi/types/VLArrayRef;)V", text.get(),
                            reference.get());
  }
  static COSValue fromJava(const JavaObject& object) {
    const Local<> reference =
        object.object("getCallbackObject", "()Lcom/lindgrove/jvi/types/VLArrayRef;");
    const ArrayPtr array(
        hostArrayConversion().from(COSValue::fromPointer(reference.get())).asPointer<vxArray>());
    return CallbackVC().from(COSValue::fromPointer(array.get()));
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(CallbackJC, CallbackInJava)

VGDT_REGISTER_TYPE(Callback, init_VortilGraphicsDatatype_CallbackDataType,
                   init_VortilGraphicsDatatype_CallbackDataType_callback)

}  // namespace graphics::datatype
