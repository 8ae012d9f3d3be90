#pragma once

#include <vcos/COSClass.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/element_types.h>
#include <vx/objects.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
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

/// A type of the library's, by the last part of its name.
inline vcos::TypeAccess accessOf(const std::string& type) {
  const vcos::COSNameID name(("vortil.graphics.datatype." + type).c_str());
  return vcos::TypeAccess::find(name).value();
}

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
    default:
      vghost::withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
        static_cast<T*>(vxGetWritableData(array))[index] = static_cast<T>(number);
        if (vxIsComplex(array))
          static_cast<T*>(vxGetWritableImagData(array))[index] = static_cast<T>(-number);
      });
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
    default:
      return vghost::withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
        const auto number = static_cast<double>(static_cast<const T*>(vxGetData(array))[index]);
        const auto* imag = static_cast<const T*>(vxGetImagData(array));
        return !imag || imag[index] == static_cast<T>(-number) ? number : NAN;
      });
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

/// The size and the numbers.
using Content = std::pair<Size, Numbers>;
inline Content contentOf(const ArrayOwner& array) {
  return {sizeOf(array.get()), numbersOf(array.get())};
}

/// 1, 2, 3, ... in storage order.
inline ArrayOwner counting(const Kind& kind, const Size& size) {
  ArrayOwner array = zeros(kind, size);
  for (std::size_t i = 0; i < vxGetNumberOfElements(array.get()); ++i)
    put(array.get(), i, static_cast<double>(i + 1));
  return array;
}

/// Calls `use(classID, std::type_identity<T>())` for the eight integer classes.
template <class Use>
void forEachIntegerClass(Use&& use) {
  for (int classID = vxINT8_CLASS; classID <= vxUINT64_CLASS; ++classID)
    vghost::withElementType(vxClassID(classID), [&]<class T>(std::type_identity<T> type) {
      if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
        use(vxClassID(classID), type);
    });
}

/// The numbers of "2x0x3".
inline Size sizeNamed(const std::string& word) {
  Size size;
  std::istringstream numbers(word);
  for (std::size_t number = 0; numbers >> number; numbers.ignore())
    size.push_back(number);
  return size;
}

/// An array told in words: "2x3 double", "sparse 1x2 logical", "complex 2x2 single". The elements
/// are the numbers in storage order, the last of them repeated: those in the words, if there are
/// any
/// ("1x3 int8 1 2"), else `numbers`.
inline ArrayOwner array(std::string_view words, Numbers numbers = {1}) {
  Kind kind = kReal;
  Size size;
  bool isSparse = false;
  Numbers told;
  std::istringstream stream{std::string(words)};
  for (std::string word; stream >> word;) {
    if (word == "complex") kind.complexity = vxCOMPLEX;
    isSparse |= word == "sparse";
    char* end = nullptr;
    const double number = std::strtod(word.c_str(), &end);
    if (word.find('x', 1) < word.find_first_not_of("0123456789x"))
      size = sizeNamed(word);
    else if (*end == '\0')
      told.push_back(number);
    for (int classID = vxCELL_CLASS; classID <= vxOBJECT_CLASS; ++classID)
      if (word == vxClassName(vxClassID(classID))) kind.classID = vxClassID(classID);
  }
  if (!told.empty()) numbers = told;
  ArrayOwner result = zeros(kind, size);
  for (std::size_t i = 0; i < vxGetNumberOfElements(result.get()); ++i)
    put(result.get(), i, numbers[std::min(i, numbers.size() - 1)]);
  return isSparse ? ArrayOwner(vxCreateSparse(result.get())) : std::move(result);
}

/// The parts of a list with "|" between two; words also have blanks around it.
inline std::vector<std::string> split(const std::string& list) {
  std::vector<std::string> parts;
  std::istringstream stream(list);
  for (std::string part; std::getline(stream, part, '|');)
    parts.push_back(part);
  return parts;
}

inline ArrayOwner sharedCopy(const ArrayOwner& array) {
  return ArrayOwner(vxCreateSharedDataCopy(array.get()));
}

}  // namespace test
