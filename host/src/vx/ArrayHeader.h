#pragma once

/// What a host array is made of. Only the files of this folder look inside.

#include "../ut/SharedCount.h"

#include <vcos/COSInterface.h>
#include <vx/array.h>

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <boost/intrusive/list_hook.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace vghost {

/// Storage of the headers and blocks of arrays: counted by vghost::faults, and a failure is a
/// Lindgrove::System::OutOfMemoryException_DEPRECATED.
struct ArrayStorage {
  static void* operator new(std::size_t size);
  static void operator delete(void* block) noexcept;
};

/// The same storage for the standard containers.
template <class T>
struct ArrayAllocator {
  using value_type = T;
  ArrayAllocator() = default;
  template <class Other>
  ArrayAllocator(const ArrayAllocator<Other>&) noexcept {}
  T* allocate(std::size_t count) {
    return static_cast<T*>(ArrayStorage::operator new(count * sizeof(T)));
  }
  void deallocate(T* elements, std::size_t) noexcept { ArrayStorage::operator delete(elements); }
  friend bool operator==(ArrayAllocator, ArrayAllocator) noexcept { return true; }
};

class Block;
using BlockPtr = boost::intrusive_ptr<Block>;

/// The elements of an array, shared by its copies. A block with more than one owner is never
/// written to.
class Block : public ArrayStorage {
 public:
  virtual ~Block();
  /// How many elements of an array there are.
  virtual std::size_t size() const noexcept = 0;
  /// The same elements in a block of its own, cut or filled up to `count` elements.
  virtual BlockPtr resized(std::size_t count) const = 0;
  /// The elements of an m by n matrix as those of its n by m transpose.
  virtual BlockPtr transposed(std::size_t m, std::size_t n) const = 0;

  bool isShared() const noexcept { return owners_.get() > 1; }

 protected:
  /// `bytes` of elements count towards the memory that all arrays have together.
  explicit Block(std::size_t bytes) noexcept;
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

 private:
  friend void intrusive_ptr_add_ref(Block* block) noexcept { block->owners_.add(1); }
  friend void intrusive_ptr_release(Block* block) noexcept {
    if (block->owners_.subtract(1) == 0) delete block;
  }

  SharedCount owners_;
  std::size_t bytes_;
};

/// Elements of the twelve element classes, zeroed when made.
class PlainBlock final : public Block {
 public:
  PlainBlock(std::size_t count, std::size_t elementSize, bool complex);

  void* real() const noexcept { return real_.get(); }
  void* imag() const noexcept { return imag_.get(); }

  std::size_t size() const noexcept override { return count_; }
  BlockPtr resized(std::size_t count) const override;
  BlockPtr transposed(std::size_t m, std::size_t n) const override;

 private:
  struct Free {
    void operator()(std::byte* bytes) const noexcept;
  };
  using Bytes = std::unique_ptr<std::byte[], Free>;

  static Bytes allocate(std::size_t count, std::size_t elementSize);
  void transpose(std::size_t m, std::size_t n, const std::byte* from, std::byte* to) const;

  std::size_t count_;
  std::size_t elementSize_;
  Bytes real_;
  Bytes imag_;
};

/// Owner of an array inside another one; a copy shares the data.
class Slot {
 public:
  Slot() noexcept = default;
  Slot(const Slot& other);
  Slot(Slot&& other) noexcept : array_(std::exchange(other.array_, nullptr)) {}
  Slot& operator=(Slot other) noexcept {
    std::swap(array_, other.array_);
    return *this;
  }
  ~Slot() { vxDestroyArray(array_); }

  const vxArray* get() const noexcept { return array_; }
  void reset(vxArray* array) noexcept { vxDestroyArray(std::exchange(array_, array)); }

 private:
  vxArray* array_ = nullptr;
};

/// Elements that are objects themselves; `width` of them make one element of the array.
template <class Element>
class ElementBlock final : public Block {
 public:
  ElementBlock(std::size_t count, std::size_t width)
      : Block(count * width * sizeof(Element)),
        count_(count),
        width_(width),
        others_(count * width == 1 ? 0 : count * width) {}
  explicit ElementBlock(Element element) noexcept
      : Block(sizeof(Element)),
        count_(1),
        width_(1),
        single_(std::move(element)) {}

  Element& at(std::size_t index, std::size_t part = 0) { return begin()[index * width_ + part]; }

  std::size_t size() const noexcept override { return count_; }
  BlockPtr resized(std::size_t count) const override {
    boost::intrusive_ptr<ElementBlock> result(new ElementBlock(count, width_));
    std::copy_n(begin(), std::min(count_, count) * width_, result->begin());
    return result;
  }

  BlockPtr transposed(std::size_t m, std::size_t n) const override {
    boost::intrusive_ptr<ElementBlock> result(new ElementBlock(m * n, width_));
    for (std::size_t column = 0; column < n; ++column)
      for (std::size_t row = 0; row < m; ++row)
        for (std::size_t part = 0; part < width_; ++part)
          result->at(row * n + column, part) = begin()[(column * m + row) * width_ + part];
    return result;
  }

 private:
  Element* begin() noexcept { return others_.empty() ? &single_ : others_.data(); }
  const Element* begin() const noexcept { return others_.empty() ? &single_ : others_.data(); }

  std::size_t count_;
  std::size_t width_;
  Element single_;  ///< where there is one, as in most arrays of objects, it needs no storage
  std::vector<Element, ArrayAllocator<Element>> others_;
};

using CellBlock = ElementBlock<Slot>;
using ObjectBlock = ElementBlock<vcos::COSInterfacePtr>;

using Dimensions = boost::container::small_vector<std::size_t, 4>;
using Names = std::shared_ptr<const std::vector<std::string>>;

/// On the list of the array-list context that the array was made in, until it is detached.
using ArrayListHook =
    boost::intrusive::list_base_hook<boost::intrusive::link_mode<boost::intrusive::auto_unlink>>;

/// Puts a new array on the list of the present context.
void enlist(vxArray* array) noexcept;

using ArrayPtr = std::unique_ptr<vxArray>;

/// An array of zeroed (or null) elements, after its size was checked. One of objects has no class
/// name yet.
ArrayPtr createArray(vxClassID classID, const std::size_t* dimensions,
                     std::size_t numberOfDimensions, vxComplexity complexity = vxREAL,
                     Names names = nullptr);

Names makeNames(std::vector<std::string> names);

/// Raises unless that many elements fit into memory beside what is there.
void requireMemory(std::size_t count, std::size_t bytesPerElement, const std::size_t* dimensions,
                   std::size_t numberOfDimensions);

/// The checks that many operations share; each raises the error that vx/array.h names.
void requireClass(const vxArray* array, vxClassID classID, const char* operation);
void requireTwoDimensions(const vxArray* array, const char* operation);
void requireIndex(std::size_t index, std::size_t count);
[[noreturn]] void raiseWrongClass(const char* operation, const char* className);

}  // namespace vghost

struct vxArray_tag final : vghost::ArrayStorage, vghost::ArrayListHook {
  vxArray_tag(vxClassID newClass, const std::size_t* newDimensions, std::size_t numberOfDimensions);
  /// A copy that shares the elements; it stands on the list of the present context.
  vxArray_tag(const vxArray_tag& other);
  /// The same on no list.
  struct Unlisted {};
  vxArray_tag(const vxArray_tag& other, Unlisted);
  vxArray_tag& operator=(const vxArray_tag&) = delete;
  ~vxArray_tag();

  std::size_t count() const noexcept;
  /// 0 for the classes without plain elements.
  std::size_t elementSize() const noexcept;
  /// The block, which is shared with no other array afterwards.
  vghost::Block* writableBlock();

  vxClassID classID;
  bool sparse = false;
  bool complex = false;
  vghost::Dimensions dimensions;
  /// Null when there are no elements, and for a function handle. It may have more elements than the
  /// array, whose dimensions were changed.
  vghost::BlockPtr block;
  /// Field names of a struct, the name of a function handle.
  vghost::Names names;
  /// Of an object array: an interned name.
  const char* className = nullptr;
};
