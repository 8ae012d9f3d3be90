#pragma once

#include <graphics/datatype/export.h>
#include <gui_objects/AutoPtr.h>
#include <vx/array.h>

#include <cstddef>

namespace boost {
template <class T>
class shared_ptr;
}
namespace resource_core {
class BaseMsgID;
}
namespace vcos {
class COSDataType;
class JavaTypeConversion;
}  // namespace vcos

namespace graphics::datatype {

/// Base of the value classes that hold one host array. The array is always a shared data copy of
/// the value's own: copying a value takes the same time whatever its size, and the array lives as
/// long as the value, also beyond the array-list context that it was made in.
///
/// A value without an array stands for the empty value of its type.
///
///     const Tick ticks(array);              // shares the elements of `array`
///     const Tick copy = ticks;              // so does this
///     const auto own = copy.getSharedDataCopy();
///     std::size_t count = vxGetNumberOfElements(own.get());
///
/// Errors: what the host raises when memory for an array fails.
class VGDT_API ArrayBase {
 public:
  ArrayBase() noexcept = default;
  /// Takes a shared data copy; no array for null. An array without elements is copied by class and
  /// size (a char array becomes 0 by 0), and a sparse one becomes full.
  explicit ArrayBase(const vxArray* array);
  ArrayBase(const ArrayBase& other);
  ArrayBase& operator=(const ArrayBase& other);
  virtual ~ArrayBase();

  /// Whether an array can be a value of the type. If a rule was broken on the way, `message` gets
  /// the message of the last one, also where the array is valid by another rule; otherwise it is
  /// left as it is. Here: true. (Not const: types outside this library override it.)
  virtual bool isValid(const vxArray* array, boost::shared_ptr<resource_core::BaseMsgID>& message);
  /// The most elements that == compares. Here: 0.
  virtual std::size_t getMaxNumberOfValuesToCompare() const;

  /// Exchanges the arrays.
  void swap(ArrayBase& other) noexcept;

  /// The array, which stays the value's; null if there is none.
  vxArray* getPtr() noexcept { return data_; }
  const vxArray* getPtr() const noexcept { return data_; }
  /// A further shared data copy, which stands in the present array-list context; null for null.
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> getSharedDataCopy() const;

  /// The Java conversion of an array type: one that lives as long as the process, the same at each
  /// call, for the six types that have a Java form of their own, and a new one for any other.
  /// `typeName` is the dotted name of the type.
  static vcos::JavaTypeConversion* createJavaConverter(const vcos::COSDataType* type,
                                                       const char* typeName);

  /// Null, or an array without elements.
  static bool isEmpty(const vxArray* array) noexcept;

  /// Whether both have no array, or arrays of the same class and size with the same elements (real
  /// parts, by the == of their type, so that NaN equals nothing). Of dimensions after the first
  /// only the product counts, beside their number.
  ///
  /// Kept: callers rely on these three. More elements than getMaxNumberOfValuesToCompare() are
  /// unequal to everything, to themselves as well, so that setting them is always a change and
  /// never costs a scan. The class of the right array decides: if it is neither numeric nor
  /// logical, the two are equal at once. And that limit is the left value's.
  bool operator==(const ArrayBase& other) const;

  /// The array as a text on the host's heap, which the caller frees with utFree; null if there is
  /// no array. The text is what the host's conversion from "any" to "string" returns. Where that
  /// fails, a row of up to nine elements is listed ("[ 1 2 3 ]"), and another array is named by its
  /// size ("[4x3 array]"). Kept: the elements of int8 and uint8 rows are written as characters,
  /// so that a 0 among them ends the text.
  ///
  /// Errors: a GenericException for such a row of another class than the numeric ones and logical;
  /// a vcos::COSOutOfMemoryException.
  char* convert_to_string() const;

 private:
  vxArray* data_ = nullptr;
};

}  // namespace graphics::datatype
