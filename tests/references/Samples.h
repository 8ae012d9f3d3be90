#pragma once

#include "SampleClasses.h"
#include "support/Arrays.h"
#include "support/Objects.h"

#include <graphics/datatype/handles.h>
#include <graphics/datatype/vgdatatypes.h>
#include <gtest/gtest.h>
#include <vcos/COSTypeRepository.h>

#include <string>

/// Objects of the sample classes, and numbers of objects.
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
inline COSInterfacePtr destroyed(const COSInterfacePtr& object) {
  vcos::COSClass::destroyObject(object);
  return object;
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
