#pragma once

#include <graphics/datatype/HostAllocated.h>
#include <vcos/COSValue.h>
#include <vcos/Enumeration.h>
#include <vcos/exceptions.h>

#include <cstddef>
#include <new>
#include <vector>

namespace graphics::datatype {

/// Walks a list of words. What they point to is not the list's: it goes to the caller with each
/// nextElement().
class WordEnumeration : public vcos::EnumerationUtil<vcos::COSValue>, public HostAllocated {
 public:
  bool hasMoreElements() const final { return next_ < words_.size(); }
  vcos::COSValue nextElement() final { return words_[next_++]; }

  /// A failed allocation is a vcos::COSOutOfMemoryException.
  void reserve(std::size_t count) {
    try {
      words_.reserve(count);
    } catch (const std::bad_alloc&) {
      throw vcos::COSOutOfMemoryException();
    }
  }
  /// Does not allocate for as many words as were reserved.
  void add(vcos::COSValue word) { words_.push_back(word); }

 private:
  std::vector<vcos::COSValue> words_;
  std::size_t next_ = 0;
};

}  // namespace graphics::datatype
