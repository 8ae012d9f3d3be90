#pragma once

#include <ut/export.h>
#include <vx/array.h>

#include <cstddef>
#include <string>
#include <vector>

/// A list of texts in UTF-8. A list that is made with new stands on the host's heap: where that has
/// no room, it is a vcos::COSOutOfMemoryException, and a std::bad_alloc where there is none for its
/// texts.
class VGHOST_API NStrings {
 public:
  NStrings() noexcept = default;
  /// A copy; an empty list for null.
  explicit NStrings(const NStrings* other);
  /// The texts of a cell array, whose null elements are empty texts, or the rows of a char array,
  /// with their trailing blanks; an empty list for null.
  ///
  /// Errors: "VORTIL:class:VORTILConversionError" for an array or an element that is not of class
  /// char.
  explicit NStrings(const vxArray* array);
  /// `count` texts; a null one is empty.
  NStrings(unsigned int count, const char* const* texts);

  static void* operator new(std::size_t size);
  static void operator delete(void* storage) noexcept;

  bool operator==(const NStrings& other) const = default;

  int getNumStrings() const noexcept { return static_cast<int>(strings_.size()); }
  /// Valid until the text is replaced or the list destroyed. Errors:
  /// "VORTIL:array:IndexOutOfRange".
  const char* operator[](int index) const;
  /// Replaces a text; null makes it empty. Errors: the same.
  void setStringAt(int index, const char* text);

  /// The list as an n by 1 cell array, which is the caller's.
  [[nodiscard]] vxArray* toMatrix() const;

 private:
  std::vector<std::string> strings_;
};
