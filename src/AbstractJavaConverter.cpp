#include "JavaObjects.h"
#include "NewArray.h"

#include <graphics/datatype/AbstractJavaConverter.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>

#include <string>

namespace graphics::datatype {

using vcos::COSNameID;
using vcos::COSValue;

namespace {

const vcos::COSTypeConversion& requireConversion(const char* outside, const char* inner) {
  const auto* const conversion =
      vcos::COSTypeRepository::getConversion(COSNameID(outside), COSNameID(inner));
  if (!conversion)
    raiseJavaError(std::string("There is no conversion between ") + outside + " and " + inner);
  return *conversion;
}

const vcos::JavaTypeConversion& requireJavaConversion(COSNameID inner) {
  const auto* const conversion = vcos::JavaTypeConversion::getConversion(inner);
  if (!conversion)
    raiseJavaError(std::string("There is no Java conversion of ").append(inner.c_str()));
  return *conversion;
}

}  // namespace

JNIEnv* JavaEnvironment::getJNIEnv() const {
  return env_ ? env_ : GetJNIEnvR();
}

AbstractJavaConverter::~AbstractJavaConverter() = default;

const char* ArrayReferenceConverter::getJavaDeclarationName() {
  return kArrayReference.dotted;
}

COSValue ArrayReferenceConverter::arrayToJava(const vcos::COSTypeConversion& ofArrays,
                                              COSValue value) {
  const ArrayPtr array(ofArrays.to(value).asPointer<vxArray>());
  return hostArrayConversion().to(COSValue::fromPointer(array.get()));
}

COSValue ArrayReferenceConverter::arrayFromJava(const vcos::COSTypeConversion& ofArrays,
                                                COSValue object) {
  const ArrayPtr array(hostArrayConversion().from(object).asPointer<vxArray>());
  return ofArrays.from(COSValue::fromPointer(array.get()));
}

const vcos::JavaTypeConversion& hostArrayConversion() {
  static const COSNameID arrays("any");
  return requireJavaConversion(arrays);
}

const vcos::JavaTypeConversion& javaConversionOf(const char* name) {
  return requireJavaConversion(COSNameID(name));
}

const vcos::COSTypeConversion& arrayConversionOf(const char* name) {
  return requireConversion("any", name);
}

const vcos::COSTypeConversion& textConversionOf(const char* name) {
  return requireConversion("string", name);
}

}  // namespace graphics::datatype
