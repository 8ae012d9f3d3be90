#pragma once

/// Host arrays of any class and shape, made of the bytes of an input.

#include <vcos/TypeAccess.h>
#include <vx/array.h>
#include <vx/element_types.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <numeric>
#include <span>
#include <type_traits>
#include <vector>

/// Reads bytes, and zeros behind the last one.
class Bytes {
 public:
  explicit Bytes(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  std::size_t left() const { return rest_.size(); }

  std::uint8_t next() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
  }

  /// Most characters are one byte; behind a byte of 0xe0 or above any two make one.
  vxChar nextCharacter() {
    const std::uint8_t byte = next();
    return byte < 0xe0 ? byte : nextNumber<vxChar>();
  }

  template <class Number>
  Number nextNumber() {
    std::uint8_t bytes[sizeof(Number)];
    std::ranges::generate(bytes, [this] { return next(); });
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
  }

 private:
  std::span<const std::uint8_t> rest_;
};

/// An array that the next bytes describe; null is one. The classes that have most to do with texts
/// come most often.
inline vcos::ArrayOwner arrayFrom(Bytes& bytes, int depth = 0) {
  constexpr int kDeepest = 3;
  constexpr std::size_t kMostElements = 4096;
  constexpr vxClassID kNone{};
  constexpr vxClassID kClasses[] = {
      vxCHAR_CLASS,   vxCELL_CLASS,   vxDOUBLE_CLASS, vxCHAR_CLASS,     kNone,
      vxSINGLE_CLASS, vxINT8_CLASS,   vxUINT8_CLASS,  vxINT16_CLASS,    vxUINT16_CLASS,
      vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS,  vxUINT64_CLASS,   vxLOGICAL_CLASS,
      vxCELL_CLASS,   vxCHAR_CLASS,   vxSTRUCT_CLASS, vxFUNCTION_CLASS, vxOBJECT_CLASS};
  const vxClassID classID = kClasses[bytes.next() % std::size(kClasses)];
  if (classID == kNone || depth > kDeepest) return nullptr;

  // A row as long as the next byte says, or up to the end; or any dimensions, also none.
  const std::uint8_t shape = bytes.next();
  std::vector<std::size_t> dimensions{1, shape < 0xf0 ? shape : bytes.left()};
  if (shape >= 0x80 && shape < 0xf0) {
    dimensions.resize(shape % 6U);
    for (std::size_t& dimension : dimensions)
      dimension = bytes.next() % 32U;
  }
  const std::size_t count =
      std::accumulate(dimensions.begin(), dimensions.end(), std::size_t{1}, std::multiplies<>());
  if (count > kMostElements) dimensions = {1, 1};

  if (classID == vxCELL_CLASS) {
    vcos::ArrayOwner cells(vxCreateCellArray(dimensions.size(), dimensions.data()));
    for (std::size_t i = 0; i < vxGetNumberOfElements(cells.get()) && bytes.left() > 0; ++i)
      vxSetCell(cells.get(), i, arrayFrom(bytes, depth + 1).release());
    return cells;
  }
  if (classID == vxFUNCTION_CLASS) return vcos::ArrayOwner(vxCreateFunctionHandle("f"));
  if (classID == vxSTRUCT_CLASS)
    return vcos::ArrayOwner(vxCreateStructMatrix(shape % 3, 1, 0, nullptr));
  if (classID == vxOBJECT_CLASS) dimensions = {0, shape};

  const bool isComplex =
      vghost::hasPlainElements(classID) && classID >= vxDOUBLE_CLASS && shape % 8 == 7;
  vcos::ArrayOwner array(vxCreateNumericArray(dimensions.size(), dimensions.data(), classID,
                                              isComplex ? vxCOMPLEX : vxREAL));
  if (vxIsEmpty(array.get())) return array;
  void* const elements = vxGetWritableData(array.get());
  vghost::withElementType(classID, [&]<class Element>(std::type_identity<Element>) {
    std::generate_n(static_cast<Element*>(elements), vxGetNumberOfElements(array.get()), [&] {
      if constexpr (std::is_same_v<Element, bool>) return bytes.next() % 2 != 0;
      if constexpr (std::is_same_v<Element, vxChar>) return bytes.nextCharacter();
      return bytes.nextNumber<Element>();
    });
  });
  const bool isSparse = classID == vxDOUBLE_CLASS && dimensions.size() == 2 && shape % 8 == 6;
  return isSparse ? vcos::ArrayOwner(vxCreateSparse(array.get())) : std::move(array);
}
