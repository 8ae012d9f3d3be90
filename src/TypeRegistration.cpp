#include "TypeRegistration.h"

#include <vcos/exceptions.h>

namespace graphics::datatype {

void addType(vcos::COSDataType& type, const char* dottedName, MakeConversion makeForArrays,
             MakeConversion makeForText) {
  registerDatatype(&type);
  static const vcos::COSNameID array("any");
  static const vcos::COSNameID text("string");
  const vcos::COSNameID inner(dottedName);
  vcos::COSTypeRepository::addConversion(array, inner, makeForArrays(type));
  vcos::COSTypeRepository::addConversion(text, inner, makeForText(type));
}

void addTypeInSilence(vcos::COSDataType& type, const char* dottedName, MakeConversion makeForArrays,
                      MakeConversion makeForText) {
  try {
    addType(type, dottedName, makeForArrays, makeForText);
  } catch (const vcos::COSException&) {
    // Start-up goes on with the next type.
  }
}

}  // namespace graphics::datatype
