#pragma once

#include <vcos/COSClass.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/objects.h>

#include <cmath>
#include <cstddef>
#include <vector>

/// Arrays of every kind, read and written as if each element were a number.
namespace test {

using vcos::ArrayOwner;
using Size = std::vector<std::size_t>;
using Numbers = std::vector<double>;

struct Kind {
  const char* name;
  vxClassID classID;
  vxComplexity complexity = vxREAL;
};

constexpr Kind kReal{"real", vxDOUBLE_CLASS};
constexpr Kind kComplex{"complex", vxDOUBLE_CLASS, vxCOMPLEX};
constexpr Kind kChar{"char", vxCHAR_CLASS};
constexpr Kind kCell{"cell", vxCELL_CLASS};
constexpr Kind kStruct{"struct", vxSTRUCT_CLASS};
constexpr Kind kObject{"object", vxOBJECT_CLASS};
constexpr Kind kKinds[] = {kReal, kComplex, kChar, kCell, kStruct, kObject};

/// A class with one property, "Number".
inline const vcos::COSClass& numberedClass() {
  static auto& numbered = *new vcos::COSClass("Numbered", nullptr);
  if (numbered.properties().empty()) numbered.addProperty("Number", vcos::COSNameID("double"));
  return numbered;
}

inline vcos::COSPropInfo& numberProperty() {
  return *vcos::COSPropInfoPtr(numberedClass().properties()[0]).getObject();
}

inline vcos::COSInterfacePtr numberedObject(double number) {
  const vcos::COSInterfacePtr object = numberedClass().createObject();
  numberProperty().setValue(object.get(), vcos::COSValue::fromDouble(number));
  return object;
}

/// Zeros, or null elements.
inline ArrayOwner zeros(const Kind& kind, const Size& size) {
  static constexpr const char* kFields[] = {"other", "number"};
  ArrayOwner array;
  switch (kind.classID) {
    case vxCELL_CLASS:
      return ArrayOwner(vxCreateCellArray(size.size(), size.data()));
    case vxSTRUCT_CLASS:
      array.reset(vxCreateStructMatrix(0, 0, 2, kFields));
      break;
    case vxOBJECT_CLASS:
      array.reset(omCreateVCOSMatrix(0, 0, numberedClass().getNameID()));
      break;
    default:
      return ArrayOwner(
          vxCreateNumericArray(size.size(), size.data(), kind.classID, kind.complexity));
  }
  vxSetDimensions(array.get(), size.data(), size.size());
  return array;
}

/// The imaginary part of a complex element is the negative of its number.
inline void put(vxArray* array, std::size_t index, double number) {
  switch (vxGetClassID(array)) {
    case vxCELL_CLASS:
      return vxSetCell(array, index, vxCreateDoubleScalar(number));
    case vxSTRUCT_CLASS:
      return vxSetFieldByNumber(array, index, 1, vxCreateDoubleScalar(number));
    case vxOBJECT_CLASS:
      return omSetArrayElement(array, index, numberedObject(number));
    case vxCHAR_CLASS:
      static_cast<vxChar*>(vxGetWritableData(array))[index] = static_cast<vxChar>(number);
      return;
    default:
      static_cast<double*>(vxGetWritableData(array))[index] = number;
      if (vxIsComplex(array)) static_cast<double*>(vxGetWritableImagData(array))[index] = -number;
  }
}

/// 0 for a null element; NaN where the imaginary part does not belong to the real one.
inline double get(const vxArray* array, std::size_t index) {
  const auto scalar = [](const vxArray* part) { return part ? vxGetScalar(part) : 0; };
  switch (vxGetClassID(array)) {
    case vxCELL_CLASS:
      return scalar(vxGetCell(array, index));
    case vxSTRUCT_CLASS:
      return scalar(vxGetFieldByNumber(array, index, 1));
    case vxOBJECT_CLASS: {
      const vcos::COSInterfacePtr object = omGetArrayElement(array, index);
      return object ? numberProperty().getValue(object.get()).asDouble() : 0;
    }
    case vxCHAR_CLASS:
      return static_cast<const vxChar*>(vxGetData(array))[index];
    default: {
      const double number = static_cast<const double*>(vxGetData(array))[index];
      const auto* imag = static_cast<const double*>(vxGetImagData(array));
      return !imag || imag[index] == -number ? number : NAN;
    }
  }
}

inline Numbers numbersOf(const vxArray* array) {
  Numbers numbers;
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    numbers.push_back(get(array, i));
  return numbers;
}

inline Size sizeOf(const vxArray* array) {
  const std::size_t* dimensions = vxGetDimensions(array);
  return {dimensions, dimensions + vxGetNumberOfDimensions(array)};
}

/// 1, 2, 3, ... in storage order.
inline ArrayOwner counting(const Kind& kind, const Size& size) {
  ArrayOwner array = zeros(kind, size);
  for (std::size_t i = 0; i < vxGetNumberOfElements(array.get()); ++i)
    put(array.get(), i, static_cast<double>(i + 1));
  return array;
}

inline ArrayOwner sharedCopy(const ArrayOwner& array) {
  return ArrayOwner(vxCreateSharedDataCopy(array.get()));
}

}  // namespace test
