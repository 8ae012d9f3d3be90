#pragma once

#include "JavaObjects.h"
#include "NewArray.h"
#include "OwnedWord.h"

#include <vcos/COSDataType.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>

namespace graphics::datatype {

/// A Java conversion that goes by way of another type, whose values come from the same arrays.
class JavaDetour {
 public:
  /// That of a type by way of another, by their dotted names.
  JavaDetour(const char* type, const char* viaType)
      : arrays_(arrayConversionOf(type)),
        viaArrays_(arrayConversionOf(viaType)),
        viaJava_(javaConversionOf(viaType)),
        viaType_(vcos::COSTypeRepository::getType(vcos::COSNameID(viaType))) {}

  vcos::COSValue to(vcos::COSValue value) const {
    const ArrayPtr array(arrays_.to(value).asPointer<vxArray>());
    const OwnedWord via(*viaType_.getObject(),
                        viaArrays_.from(vcos::COSValue::fromPointer(array.get())));
    return viaJava_.to(via.get());
  }

  vcos::COSValue from(vcos::COSValue object) const {
    const OwnedWord via(*viaType_.getObject(), viaJava_.from(object));
    const ArrayPtr array(viaArrays_.to(via.get()).asPointer<vxArray>());
    return arrays_.from(vcos::COSValue::fromPointer(array.get()));
  }

  const vcos::JavaTypeConversion& viaJava() const noexcept { return viaJava_; }

 private:
  const vcos::COSTypeConversion& arrays_;
  const vcos::COSTypeConversion& viaArrays_;
  const vcos::JavaTypeConversion& viaJava_;
  vcos::COSDataTypePtr viaType_;
};

}  // namespace graphics::datatype
