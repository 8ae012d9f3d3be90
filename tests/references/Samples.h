#pragma once

#include "SampleClasses.h"
#include "support/Arrays.h"

#include <graphics/datatype/handles.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <vcos/COSTypeRepository.h>

#include <string>

/// Objects of the sample classes, and what they hold.
namespace test {

using vcos::COSInterface;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vcos::COSValue;

class Samples : public testing::Test {
 protected:
  static void SetUpTestSuite() { VLInitialize_vgdatatypes(); }
};

inline COSInterfacePtr sampleObject(const std::string& className) {
  return sample::findClass(className)->createObject();
}

inline vcos::COSPropInfo& propertyOf(COSInterface* object, const char* name) {
  return *vcos::COSPropInfoPtr(object->findProperty(COSNameID(name))).getObject();
}
inline vcos::COSPropInfo& propertyOf(const COSInterfacePtr& object, const char* name) {
  return propertyOf(object.get(), name);
}

/// The text of a value, or the numbers in its array.
inline std::string shown(const COSInterfacePtr& object, const char* name) {
  const vcos::COSPropInfo& property = propertyOf(object, name);
  const vcos::TypeAccess& access = property.getTypeAccess();
  const COSValue value = property.getValue(object.get());
  if (std::string_view(access.dataType().getName()) != "PrimitiveColorData")
    return access.toText(value).value_or("null");
  return testing::PrintToString(numbersOf(access.toArray(value).get()));
}

inline const vcos::COSTypeConversion& numbers() {
  return *vcos::COSTypeRepository::getConversion(
      COSNameID("double"), COSNameID("vortil.graphics.datatype.COSInterface"));
}
inline double numberOf(const COSInterfacePtr& object) {
  return numbers().to(COSValue::fromPointer(object.get())).asDouble();
}
inline COSInterface* objectOf(double number) {
  return numbers().from(COSValue::fromDouble(number)).asPointer<COSInterface>();
}

inline ArrayOwner scalar(double number) {
  return ArrayOwner(vxCreateDoubleScalar(number));
}

}  // namespace test
