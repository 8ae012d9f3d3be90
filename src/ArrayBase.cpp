#include "HostText.h"

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/exceptions.h>
#include <messages/BaseMsgID.h>
#include <vg/ArrayDispatcher.h>
#include <vx/scopes.h>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace graphics::datatype {
namespace {

using vg::TL::detail::ArrayDispatcherBase;
using NumericOrLogical =
    vg::TL::Typelist<vg::MatrixTraits<vxDOUBLE_CLASS>,
                     vg::TL::Typelist<vg::MatrixTraits<vxLOGICAL_CLASS>, vg::TL::NumericButDouble>>;

/// A logical is any byte to whoever writes one.
template <class Traits>
using ElementOf = std::conditional_t<std::is_same_v<typename Traits::ElementType, bool>,
                                     unsigned char, typename Traits::ElementType>;

/// A real array without elements, of the class and size of another.
vxArray* copyOfEmpty(const vxArray* array) {
  const std::size_t* const dimensions = vxGetDimensions(array);
  const vxClassID classID = vxGetClassID(array);
  switch (const std::size_t count = vxGetNumberOfDimensions(array)) {
    case 0:
      return nullptr;
    case 1:
      return vxCreateNumericMatrix(dimensions[0], 0, classID, vxREAL);
    case 2:
      return vxCreateNumericMatrix(dimensions[0], dimensions[1], classID, vxREAL);
    default:
      return vxCreateNumericArray(count, dimensions, classID, vxREAL);
  }
}

vxArray* sharedCopyOf(const vxArray* array) {
  if (!array) return nullptr;
  const bool isText = vxGetClassID(array) == vxCHAR_CLASS;
  if (vxIsEmpty(array)) return isText ? vxCreateString("") : copyOfEmpty(array);
  return !isText && vxIsSparse(array) ? vxMustBeFull(array) : vxCreateSharedDataCopy(array);
}

/// The same, for as long as its owner wants.
vxArray* lastingCopyOf(const vxArray* array) {
  vxArray* const copy = sharedCopyOf(array);
  if (copy) vxSetArrayScope(copy, 0);
  return copy;
}

bool haveSameShapeAndClass(const vxArray* a, const vxArray* b) {
  return vxGetNumberOfDimensions(a) == vxGetNumberOfDimensions(b) && vxGetM(a) == vxGetM(b) &&
         vxGetN(a) == vxGetN(b) && vxGetClassID(a) == vxGetClassID(b);
}

/// Compares an array with the one that the dispatcher goes by.
struct ComparingExecutor {
  const vxArray* left;
  std::size_t limit;
  bool areEqual = true;

  template <class Traits>
  void run(const vxArray* right) {
    using Element = ElementOf<Traits>;
    const std::size_t count = vxGetNumberOfElements(right);
    const auto* const elements = static_cast<const Element*>(vxGetData(right));
    areEqual = haveSameShapeAndClass(left, right) && count <= limit &&
               std::equal(elements, elements + count, static_cast<const Element*>(vxGetData(left)));
  }
  void onError(vxClassID) {}
};

/// Writes elements, each with a blank in front.
struct WritingExecutor {
  std::ostream& stream;

  template <class Traits>
  void run(const vxArray* array) {
    const auto* const elements = static_cast<const ElementOf<Traits>*>(vxGetData(array));
    for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
      stream << ' ' << static_cast<typename Traits::ElementType>(elements[i]);
  }
  void onError(vxClassID) { throw GenericException(); }
};

std::string describe(const vxArray* array) {
  constexpr std::size_t kMostListed = 9;
  std::ostringstream stream;
  stream.imbue(std::locale::classic());  // "0,5" would read back as two numbers
  stream << '[';
  if (vxGetN(array) <= kMostListed && vxGetM(array) == 1) {
    WritingExecutor executor{stream};
    vg::TL::ArrayDispatcher<WritingExecutor, NumericOrLogical>::dispatchHelper(
        array, ArrayDispatcherBase::getClassID(array), executor);
    stream << ' ';
  } else {
    stream << vxGetM(array) << 'x' << vxGetN(array) << " array";
  }
  stream << ']';
  return stream.str();
}

}  // namespace

ArrayBase::ArrayBase(const vxArray* array) : data_(lastingCopyOf(array)) {}

ArrayBase::ArrayBase(const ArrayBase& other) : data_(lastingCopyOf(other.data_)) {}

ArrayBase& ArrayBase::operator=(const ArrayBase& other) {
  ArrayBase copy(other);
  swap(copy);
  return *this;
}

ArrayBase::~ArrayBase() {
  vxDestroyArray(data_);
}

bool ArrayBase::isValid(const vxArray*, boost::shared_ptr<resource_core::BaseMsgID>&) {
  return true;
}

std::size_t ArrayBase::getMaxNumberOfValuesToCompare() const {
  return 0;
}

void ArrayBase::swap(ArrayBase& other) noexcept {
  std::swap(data_, other.data_);
}

gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> ArrayBase::getSharedDataCopy() const {
  return gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>(sharedCopyOf(data_));
}

bool ArrayBase::isEmpty(const vxArray* array) noexcept {
  return !array || vxIsEmpty(array);
}

bool ArrayBase::operator==(const ArrayBase& other) const {
  if (!data_ || !other.data_) return data_ == other.data_;
  ComparingExecutor executor{data_, getMaxNumberOfValuesToCompare()};
  vg::TL::ArrayDispatcher<ComparingExecutor, NumericOrLogical>::dispatchHelper(
      other.data_, ArrayDispatcherBase::getClassID(other.data_), executor);
  return executor.areEqual;
}

char* ArrayBase::convert_to_string() const {
  if (!data_) return nullptr;
  try {
    if (const auto* conversion = arrayTextConversion())
      return conversion->from(vcos::COSValue::fromPointer(data_)).asPointer<char>();
  } catch (...) {
    // Most arrays are no text: they are described.
  }
  return copyText(describe(data_).c_str());
}

}  // namespace graphics::datatype
