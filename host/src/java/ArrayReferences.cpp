#include "../vx/comparison.h"
#include "HeldByJava.h"
#include "Natives.h"
#include "ReferenceConversions.h"

#include <java/references.h>
#include <vcos/TypeAccess.h>
#include <vx/literal.h>
#include <vx/objects.h>
#include <vx/scopes.h>

#include <atomic>
#include <boost/container_hash/hash.hpp>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace vghost::java {
namespace {

using vcos::ArrayOwner;
using vcos::COSValue;

/// The bytes of all arrays that Java holds.
std::atomic<std::size_t> bytesHeld = 0;

class HeldArray {
 public:
  explicit HeldArray(ArrayOwner array)
      : array_(std::move(array)),
        bytes_(vxGetNumberOfElements(array_.get()) * vxGetElementSize(array_.get())) {
    bytesHeld += bytes_;
  }
  HeldArray(HeldArray&& other) noexcept
      : array_(std::move(other.array_)),
        bytes_(std::exchange(other.bytes_, 0)) {}
  HeldArray& operator=(HeldArray&&) = delete;
  ~HeldArray() { bytesHeld -= bytes_; }

  const vxArray* get() const noexcept { return array_.get(); }

 private:
  ArrayOwner array_;
  std::size_t bytes_;
};

/// Asks Java to collect what it no longer needs. Java sees a reference as a small object, whatever
/// the size of its array, and would collect too late for the memory of the host.
void collectIfMuchIsHeld(JNIEnv& java) noexcept {
  constexpr std::size_t kMuch = std::size_t{256} << 20U;
  static std::atomic<std::size_t> bound = kMuch;
  if (bytesHeld <= kMuch) bound = kMuch;
  if (bytesHeld <= bound) return;
  bound = 2 * bytesHeld;
  const Local<_jclass> system = findClass(java, "java/lang/System");
  const jmethodID collect = system ? java.GetStaticMethodID(system.get(), "gc", "()V") : nullptr;
  if (collect) java.CallStaticVoidMethod(system.get(), collect);
  clearException(java);
}

/// Never destroyed: Java may end after the host's own data.
HeldByJava<HeldArray>& arrays() {
  static auto& table = *new HeldByJava<HeldArray>("com/lindgrove/jvi/types/VLArrayRef",
                                                  "com.lindgrove.jvi.types.VLArrayRef");
  return table;
}

ArrayOwner detachedCopy(const vxArray* array) {
  if (array) return ArrayOwner(vxCreateSharedCopyNotOnArrayList(array));
  ArrayOwner nothing(vxCreateDoubleMatrix(0, 0, vxREAL));
  vxSetArrayScope(nothing.get(), 0);
  return nothing;
}

vxArray* copyOfNumber(jlong number) {
  return arrays().with([](const HeldArray& held) { return vxCreateSharedDataCopy(held.get()); },
                       number);
}

class ArrayConversion final : public vcos::JavaTypeConversion {
 public:
  COSValue to(COSValue value) const override {
    JNIEnv& java = requireJava();
    releaseGivenUpByJava();
    collectIfMuchIsHeld(java);
    Local<_jobject> object = newArrayReference(java, value.asPointer<vxArray>());
    if (!object) arrays().javaClass().raiseNotCreated(java);
    return COSValue::fromPointer(object.release());
  }

  COSValue from(COSValue object) const override {
    JNIEnv& java = requireJava();
    releaseGivenUpByJava();
    const jlong number = arrays().javaClass().requireNumberOf(java, object.asPointer<_jobject>());
    return COSValue::fromPointer(copyOfNumber(number));
  }

  const char* getJavaDeclarationName() override { return arrays().javaClass().dottedName; }
};

/// The same for arrays that are the same.
std::size_t hashOf(const vxArray* array) {
  if (!array) return 0;
  const vxClassID classID = vxGetClassID(array);
  std::size_t hash = 0;
  const auto add = [&hash](const auto& part) { boost::hash_combine(hash, part); };
  add(static_cast<int>(classID));
  const std::size_t* const dimensions = vxGetDimensions(array);
  boost::hash_range(hash, dimensions, dimensions + vxGetNumberOfDimensions(array));
  const std::size_t count = vxGetNumberOfElements(array);
  if (const void* const elements = vxGetData(array))
    add(std::hash<std::string_view>()(
        {static_cast<const char*>(elements), count * vxGetElementSize(array)}));
  if (classID == vxFUNCTION_CLASS) add(std::string_view(vxGetFunctionName(array)));
  for (std::size_t i = 0; i < count; ++i) {
    if (classID == vxCELL_CLASS) add(hashOf(vxGetCell(array, i)));
    if (classID == vxOBJECT_CLASS) add(omGetArrayElement(array, i).get());
    for (int field = 0; field < vxGetNumberOfFields(array); ++field)
      add(hashOf(vxGetFieldByNumber(array, i, field)));
  }
  return hash;
}

/// Hands an array that was made for Java over to it.
jlong addNew(vxArray* array) {
  vxSetArrayScope(array, 0);
  return arrays().add(HeldArray(ArrayOwner(array)));
}

void requireRow(jobject row) {
  if (!row) throw std::invalid_argument("null is no row");
}

}  // namespace

std::unique_ptr<vcos::JavaTypeConversion> makeArrayConversion() {
  return std::make_unique<ArrayConversion>();
}

Local<_jobject> newArrayReference(JNIEnv& java, const vxArray* array) {
  return arrays().give(java, HeldArray(detachedCopy(array)));
}

vxArray* arrayBehind(JNIEnv& java, jobject object) {
  const auto number = arrays().javaClass().numberOf(java, object);
  return number ? copyOfNumber(*number) : nullptr;
}

void releaseArraysGivenUp() noexcept {
  arrays().releaseGivenUp();
}

}  // namespace vghost::java

// The native methods of VLArrayRef.

using namespace vghost::java;

extern "C" {

JNIEXPORT jlong JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_newNumbers(JNIEnv* java, jclass,
                                                                           jdoubleArray row) {
  return guarded(java, [=] {
    requireRow(row);
    return addNew(newNumberRow(*java, row));
  });
}

JNIEXPORT jlong JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_newText(JNIEnv* java, jclass,
                                                                        jstring row) {
  return guarded(java, [=] {
    requireRow(row);
    return addNew(newTextRow(*java, row));
  });
}

JNIEXPORT void JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_release(JNIEnv* java, jclass,
                                                                       jlong number) {
  guarded(java, [=] { arrays().giveUp(number); });
}

JNIEXPORT jboolean JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_areEqual(JNIEnv* java, jclass,
                                                                            jlong a, jlong b) {
  return guarded(java, [=]() -> jboolean {
    return arrays().with(
        [](const HeldArray& first, const HeldArray& second) {
          return vghost::areSame(first.get(), second.get());
        },
        a, b);
  });
}

JNIEXPORT jint JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_hash(JNIEnv* java, jclass,
                                                                    jlong number) {
  return guarded(java, [=] {
    return static_cast<jint>(
        arrays().with([](const HeldArray& held) { return hashOf(held.get()); }, number));
  });
}

JNIEXPORT jstring JNICALL Java_com_lindgrove_jvi_types_VLArrayRef_literal(JNIEnv* java, jclass,
                                                                          jlong number) {
  return guarded(java, [=] {
    return newJavaText(
        java, arrays().with([](const HeldArray& held) { return vghost::formatLiteral(held.get()); },
                            number));
  });
}

}  // extern "C"
