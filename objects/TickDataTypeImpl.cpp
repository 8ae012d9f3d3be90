#include "FloatElements.h"
#include "JavaObjects.h"
#include "NewArray.h"
#include "ShapedArrayJavaConverter.h"

#include <graphics/datatype/TickData.h>
#include <graphics/datatype/shaped_types.h>
#include <messages/exceptions.h>

#include <algorithm>
#include <span>
#include <string>

namespace graphics::datatype {

using vcos::COSValue;

Tick convertVectorToTickData(const std::vector<double>& values) {
  if (values.empty()) return {};
  const gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> array(
      vxCreateNumericMatrix(1, values.size(), vxDOUBLE_CLASS, vxREAL));
  std::ranges::copy(values, static_cast<double*>(vxGetWritableData(array.get())));
  return Tick(array.get());
}

std::vector<double> convertTickDataToVector(const Tick& tick) {
  return floatsOf(tick.getPtr());
}

// --- Java ---------------------------------------------------------------------------------------

namespace {

constexpr const char* kFile = "objects/TickDataTypeImpl";
constexpr JavaName kDoubles{"double[]"};

/// The numbers of a double[].
std::vector<double> numbersIn(const JavaEnvironment& environment, COSValue object) {
  const Place place(kFile);
  const JavaClass javaClass(environment, kDoubles, place);
  javaClass.requireInstance(object.asPointer<_jobject>());
  return doublesOf(javaClass.java(), static_cast<jdoubleArray>(object.asPointer<_jobject>()),
                   place);
}

COSValue newJavaNumbers(const JavaEnvironment& environment, std::span<const double> numbers) {
  const Place place(kFile);
  JNIEnv& java = requireJava(environment, kDoubles.path, place);
  return COSValue::fromPointer(newDoubles(java, numbers, place).release());
}

}  // namespace

COSValue TickJavaConverter::to(COSValue value) const {
  const auto* const tick = value.asPointer<const Tick>();
  if (!tick) return newJavaNumbers(*this, {});
  return newJavaNumbers(*this, convertTickDataToVector(*tick));
}

COSValue TickJavaConverter::from(COSValue object) const {
  if (object.isNull()) return COSValue::fromPointer(new Tick);
  const std::vector<double> numbers = numbersIn(*this, object);
  try {
    return COSValue::fromPointer(new Tick(convertVectorToTickData(numbers)));
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    raiseJavaError("Values must monotonically increase");
  }
}

const char* TickJavaConverter::getJavaDeclarationName() {
  return kDoubles.dotted;
}

COSValue TickLengthJavaConverter::to(COSValue value) const {
  const auto* const length = value.asPointer<const TickLength>();
  if (!length) raiseJavaError("NULL is not a valid value fot TickLength");  // kept: the misspelling
  const vxArray* const array = length->getPtr();
  if (!array || vxGetNumberOfElements(array) != 2)
    raiseJavaError("Native array size is not equal to 2");
  if (vxGetClassID(array) != vxDOUBLE_CLASS) raiseJavaError("Input data type must be double");
  return newJavaNumbers(*this, floatsOf(array));
}

COSValue TickLengthJavaConverter::from(COSValue object) const {
  if (object.isNull()) raiseJavaError("Empty array is not a valid value");
  const std::vector<double> numbers = numbersIn(*this, object);
  if (numbers.size() != 2)
    Place(kFile).raise("Array size is not equal to 2: " + std::to_string(numbers.size()));
  const ArrayPtr array(newMatrix<1>({numbers[0], numbers[1]}));
  try {
    return COSValue::fromPointer(new TickLength(array.get()));
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    raiseJavaError("Invalid value for TickLength");
  }
}

const char* TickLengthJavaConverter::getJavaDeclarationName() {
  return kDoubles.dotted;
}

}  // namespace graphics::datatype
