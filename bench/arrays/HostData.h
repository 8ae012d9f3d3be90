#pragma once

/// Host arrays at a wanted place in memory.

#include "Rules.h"

#include <vx/array.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace arrays {

/// Where elements begin, in bytes behind a multiple of 64: what vectors like best, and what memory
/// on request usually is.
enum class Place : std::size_t { kAligned = 0, kUsual = 16 };

/// To be called before any array is made, so that large ones come to stand at either place.
void prepareMemory();

/// A real array of zeros. Fails if memory does not have the place.
vxArray* makeArrayAt(Place place, Shape shape, vxClassID classID);

/// An array of a type, which is valid but for what is done to the elements.
template <class Rules>
class HostData {
 public:
  using Element = typename Rules::Element;

  HostData(std::size_t count, Place place)
      : array_(makeArrayAt(place, Rules::shapeFor(count), Rules::kClass)),
        elements_(static_cast<Element*>(vxGetWritableData(array_)), vxGetNumberOfElements(array_)) {
    fill();
  }
  HostData(const HostData&) = delete;
  HostData& operator=(const HostData&) = delete;
  ~HostData() { vxDestroyArray(array_); }

  const vxArray* array() const { return array_; }
  std::span<Element> elements() const { return elements_; }

  /// The same valid elements each time.
  void fill() const {
    std::uint32_t random = 1;
    for (Element& element : elements_) {
      random = random * 1664525 + 1013904223;
      element = Rules::valid(random >> 8);
    }
  }

 private:
  vxArray* array_;
  std::span<Element> elements_;
};

}  // namespace arrays
