#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/JavaPeerDataType.h>
#include <java/environment.h>
#include <java/references.h>
#include <vcos/exceptions.h>
#include <vx/array.h>

#include <jni.h>

#include <memory>

namespace graphics::datatype {

using vcos::COSValue;

template <>
struct PropertyTypeTraits<JavaPeerDataType> : PlainValues<JavaPeer> {
  static constexpr std::size_t kBytes = 24;
  static_assert(sizeof(JavaPeer) == kBytes);

  static bool isEqual(const JavaPeer& a, const JavaPeer& b) {
    const auto first = a.get_jobject();
    const auto second = b.get_jobject();
    // Without a machine there are no references either.
    JNIEnv* const java = GetJNIEnv();
    return java ? java->IsSameObject(first.get(), second.get()) != JNI_FALSE : first == second;
  }
};
template class NamedDataType<JavaPeerDataType>;
template class PropertyDataType<JavaPeerDataType, JavaPeer>;

boost::shared_ptr<_jobject> makeNewSharedGlobalRef(jobject object) {
  const jobject reference = vljNewGlobalRef(object, false);
  if (!reference) throw vcos::COSOutOfMemoryException();
  return {reference, [](jobject shared) { vljDeleteGlobalRef(shared, false); }};
}

JavaPeer::JavaPeer() noexcept = default;

JavaPeer::JavaPeer(jobject object) {
  setJavaReference(object);
}

JavaPeer::JavaPeer(const JavaPeer& other) : HostAllocated(other) {
  setJavaReference(other.reference_.get());
}

JavaPeer& JavaPeer::operator=(const JavaPeer& other) {
  if (this != &other) setJavaReference(other.reference_.get());
  return *this;
}

JavaPeer::~JavaPeer() = default;

void JavaPeer::setJavaReference(jobject object) {
  if (object) reference_ = makeNewSharedGlobalRef(object);
}

COSValue JavaPeerDataType::getDefaultValue() const {
  return {};
}

COSValue JavaPeerSC::to(COSValue) const {
  return {};
}
COSValue JavaPeerSC::from(COSValue) const {
  return {};
}

COSValue JavaPeerVC::to(COSValue value) const {
  const auto* const peer = value.asPointer<const JavaPeer>();
  if (!peer) return COSValue::fromPointer(vxCreateDoubleMatrix(0, 0, vxREAL));
  const jobject reference = vljNewGlobalRef(peer->get_jobject().get(), false);
  return COSValue::fromPointer(javaConvertJavaObjectToClosestVortilArray(reference));
}

COSValue JavaPeerVC::from(COSValue array) const {
  if (array.isNull()) return {};
  struct Destroy {
    void operator()(jobject reference) const noexcept { jvi::JObjectDtor::destroy(reference); }
  };
  const std::unique_ptr<_jobject, Destroy> closest(
      javaConvertVortilToClosestJavaObject(array.asPointer<const vxArray>()));
  return COSValue::fromPointer(new JavaPeer(closest.get()));
}

VGDT_REGISTER_TYPE(JavaPeer, init_VortilGraphicsDatatype_JavaPeerDataType,
                   init_VortilGraphicsDatatype_JavaPeerDataType_callback)

}  // namespace graphics::datatype
