#include "TypeRegistration.h"

#include <vcos/exceptions.h>

namespace graphics::datatype {

void addType(vcos::COSDataType& type, const char* dottedName, const Conversions& conversions) {
  registerDatatype(&type);
  static const vcos::COSNameID array("any");
  static const vcos::COSNameID text("string");
  const vcos::COSNameID inner(dottedName);
  vcos::COSTypeRepository::addConversion(array, inner, conversions.forArrays(type));
  vcos::COSTypeRepository::addConversion(text, inner, conversions.forText(type));
  vcos::JavaTypeConversion::addConversion(inner, conversions.forJava(type, dottedName));
}

void addTypeInSilence(vcos::COSDataType& type, const char* dottedName,
                      const Conversions& conversions) {
  try {
    addType(type, dottedName, conversions);
  } catch (const vcos::COSException&) {
    // Start-up goes on with the next type.
  }
}

}  // namespace graphics::datatype
