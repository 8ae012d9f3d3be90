#pragma once

#include "JavaObjects.h"
#include "NewArray.h"

#include <vcos/COSDataType.h>

namespace graphics::datatype {

/// A Java conversion that goes by way of another type, whose values come from the same arrays.
class JavaDetour {
 public:
  /// That of a data type by way of another. The conversions are looked up once.
  template <class DataType, class ViaDataType>
  static const JavaDetour& by() {
    static const JavaDetour detour(arrayConversionOf(DataType::kDottedName),
                                   arrayConversionOf(ViaDataType::kDottedName),
                                   javaConversionOf(ViaDataType::kDottedName),
                                   *ViaDataType::getType());
    return detour;
  }

  vcos::COSValue to(vcos::COSValue value) const {
    const ArrayPtr array(arrays_.to(value).asPointer<vxArray>());
    const ViaValue via(viaType_, viaArrays_.from(vcos::COSValue::fromPointer(array.get())));
    return viaJava_.to(via.word());
  }

  vcos::COSValue from(vcos::COSValue object) const {
    const ViaValue via(viaType_, viaJava_.from(object));
    const ArrayPtr array(viaArrays_.to(via.word()).asPointer<vxArray>());
    return arrays_.from(vcos::COSValue::fromPointer(array.get()));
  }

  const vcos::JavaTypeConversion& viaJava() const noexcept { return viaJava_; }

 private:
  JavaDetour(const vcos::COSTypeConversion& arrays, const vcos::COSTypeConversion& viaArrays,
             const vcos::JavaTypeConversion& viaJava, const vcos::COSDataType& viaType)
      : arrays_(arrays),
        viaArrays_(viaArrays),
        viaJava_(viaJava),
        viaType_(viaType) {}

  class ViaValue {
   public:
    ViaValue(const vcos::COSDataType& type, vcos::COSValue word) : type_(type), word_(word) {}
    ViaValue(const ViaValue&) = delete;
    ViaValue& operator=(const ViaValue&) = delete;
    ~ViaValue() { type_.destroy(word_); }

    vcos::COSValue word() const noexcept { return word_; }

   private:
    const vcos::COSDataType& type_;
    vcos::COSValue word_;
  };

  const vcos::COSTypeConversion& arrays_;
  const vcos::COSTypeConversion& viaArrays_;
  const vcos::JavaTypeConversion& viaJava_;
  const vcos::COSDataType& viaType_;
};

}  // namespace graphics::datatype
