#include "HeldByJava.h"
#include "Natives.h"
#include "ReferenceConversions.h"

#include <java/references.h>
#include <vx/literal.h>

#include <functional>

namespace vghost::java {
namespace {

using vcos::COSInterface;
using vcos::COSInterfacePtr;
using vcos::COSValue;

/// Never destroyed: Java may end after the host's own data.
HeldByJava<COSInterfacePtr>& objects() {
  static auto& table = *new HeldByJava<COSInterfacePtr>("com/lindgrove/jvi/bean/UDDObject",
                                                        "com.lindgrove.jvi.bean.UDDObject");
  return table;
}

COSInterfacePtr objectOfNumber(jlong number) {
  return objects().with([](const COSInterfacePtr& held) { return held; }, number);
}

class ObjectConversion final : public vcos::JavaTypeConversion {
 public:
  COSValue to(COSValue value) const override {
    JNIEnv& java = requireJava();
    releaseGivenUpByJava();
    if (value.isNull()) return {};
    Local<_jobject> object = objects().give(java, COSInterfacePtr(value.asPointer<COSInterface>()));
    if (!object) objects().javaClass().raiseNotCreated(java);
    return COSValue::fromPointer(object.release());
  }

  COSValue from(COSValue object) const override {
    JNIEnv& java = requireJava();
    releaseGivenUpByJava();
    if (object.isNull()) return {};
    const COSInterfacePtr held =
        objectOfNumber(objects().javaClass().requireNumberOf(java, object.asPointer<_jobject>()));
    held->addRef();
    return COSValue::fromPointer(held.get());
  }

  const char* getJavaDeclarationName() override { return objects().javaClass().dottedName; }
};

}  // namespace

std::unique_ptr<vcos::JavaTypeConversion> makeObjectConversion() {
  return std::make_unique<ObjectConversion>();
}

COSInterfacePtr objectBehind(JNIEnv& java, jobject object) {
  const auto number = objects().javaClass().numberOf(java, object);
  return number ? objectOfNumber(*number) : COSInterfacePtr();
}

void releaseObjectsGivenUp() noexcept {
  objects().releaseGivenUp();
}

}  // namespace vghost::java

// The native methods of UDDObject.

using namespace vghost::java;

extern "C" {

JNIEXPORT void JNICALL Java_com_lindgrove_jvi_bean_UDDObject_release(JNIEnv* java, jclass,
                                                                     jlong number) {
  guarded(java, [=] { objects().giveUp(number); });
}

JNIEXPORT jboolean JNICALL Java_com_lindgrove_jvi_bean_UDDObject_areSame(JNIEnv* java, jclass,
                                                                         jlong a, jlong b) {
  return guarded(java, [=]() -> jboolean { return objects().with(std::equal_to<>(), a, b); });
}

JNIEXPORT jint JNICALL Java_com_lindgrove_jvi_bean_UDDObject_hash(JNIEnv* java, jclass,
                                                                  jlong number) {
  return guarded(java, [=] {
    return objects().with(
        [](const COSInterfacePtr& held) {
          return static_cast<jint>(std::hash<const COSInterface*>()(held.get()) >> 4U);
        },
        number);
  });
}

JNIEXPORT jstring JNICALL Java_com_lindgrove_jvi_bean_UDDObject_name(JNIEnv* java, jclass,
                                                                     jlong number) {
  return guarded(java, [=] {
    return newJavaText(
        java,
        objects().with([](const COSInterfacePtr& held) { return vghost::shownName(*held.get()); },
                       number));
  });
}

}  // extern "C"
