#include "shaped/ElementScan.h"

#include "shaped/ElementScreens.h"

#include <algorithm>

namespace graphics::datatype::shaped {
namespace {

/// The range of the numbers that pass a scan; whether NaN passes is another question.
template <class Float>
struct PassingRange {
  Float min = -std::numeric_limits<Float>::infinity();
  Float max = std::numeric_limits<Float>::infinity();
  bool isWhole = false;  ///< they have to be whole numbers

  explicit PassingRange(const ElementScan& scan) {
    for (const ElementTest test : scan.tests) {
      if (test == ElementTest::kEnd) return;
      if (test == ElementTest::kRange) {
        narrow(roundedUp(scan.min), roundedDown(scan.max));
      } else if (test == ElementTest::kNotInf) {
        constexpr Float kMax = std::numeric_limits<Float>::max();
        narrow(-kMax, kMax);
      } else if (test == ElementTest::kWhole32) {
        // The lowest one has no counterpart, and is left to the tests themselves, as are the
        // numbers that the screens cannot round.
        constexpr double kMax = std::numeric_limits<std::int32_t>::max();
        constexpr auto kMost =
            static_cast<Float>(std::min(kMax, double{screens::kMostRounded<Float>}));
        narrow(-kMost, kMost);
        isWhole = true;
      }
    }
  }

  /// Whether a screen can tell the range: it begins at 0 or above, or is as wide below 0 as above.
  /// A bound of -0 has bits of its own, and a NaN is no bound.
  bool isScreened() const {
    const bool isNegativeZero = std::signbit(max) || (min == 0 && std::signbit(min));
    return min <= max && (min >= 0 || min == -max) && !isNegativeZero;
  }

 private:
  void narrow(Float newMin, Float newMax) {
    min = std::max(min, newMin);
    max = std::min(max, newMax);
  }

  /// Where the numbers have fewer digits, the range becomes smaller and not larger.
  static Float roundedUp(double bound) {
    const auto nearest = static_cast<Float>(bound);
    return nearest < bound ? std::nextafter(nearest, std::numeric_limits<Float>::infinity())
                           : nearest;
  }
  static Float roundedDown(double bound) { return -roundedUp(-bound); }
};

template <class T>
std::size_t findByElement(const ElementScan& scan, const T* elements, std::size_t from,
                          std::size_t to) {
  while (from < to && !examine(scan, elements[from]).isFailure())
    ++from;
  return from;
}

/// The index of the first element of the first block that the screen flags; `count` if it flags
/// none. A few elements are not worth the screen: they count as flagged.
template <std::size_t blockBytes, class Screen, class T>
std::size_t findFlaggedBlock(const Screen& screen, const T* elements, std::size_t count) {
  if (count * sizeof(T) < screens::kLeastBytes) return 0;
  const auto* const data = reinterpret_cast<const std::byte*>(elements);
  return screens::findFlaggedBlock<blockBytes>(screen, data, count * sizeof(T)) / sizeof(T);
}

/// Most arrays pass the quick screen. Behind its first flag, the exact one, which is made only
/// then, shows what to look at.
template <class T, class QuickScreen, class MakeExactScreen>
std::size_t findWithScreens(const ElementScan& scan, const T* elements, std::size_t count,
                            const QuickScreen& quick, const MakeExactScreen& makeExact) {
  constexpr std::size_t kMostInBlock = (screens::kSmallBlock + screens::kMostBefore) / sizeof(T);
  std::size_t from = findFlaggedBlock<screens::kLargeBlock>(quick, elements, count);
  if (from == count) return count;
  const auto exact = makeExact();
  while (from < count) {
    from += findFlaggedBlock<screens::kSmallBlock>(exact, elements + from, count - from);
    const std::size_t end = std::min(from + kMostInBlock, count);
    from = findByElement(scan, elements, from, end);
    if (from < end) return from;
  }
  return count;
}

template <template <class> class Screen, class Float>
std::size_t findFailingFloat(const ElementScan& scan, const PassingRange<Float>& range,
                             const Float* elements, std::size_t count) {
  return findWithScreens(scan, elements, count, Screen<Float>(range.min, range.max), [&] {
    const bool nanPasses = !examine(scan, std::numeric_limits<Float>::quiet_NaN()).isFailure();
    return screens::Exact<Screen<Float>>(range.min, range.max, nanPasses);
  });
}

/// The same tests but that for the range: any failure of these ends a scan at once.
ElementScan withoutRange(ElementScan scan) {
  const auto kept = std::remove(scan.tests.begin(), scan.tests.end(), ElementTest::kRange);
  std::fill(kept, scan.tests.end(), ElementTest::kEnd);
  return scan;
}

}  // namespace

template <NumericElement T>
std::size_t findFailing(const ElementScan& scan, const T* elements, std::size_t count) {
  if constexpr (std::is_floating_point_v<T>) {
    const PassingRange<T> range(scan);
    if (!range.isScreened()) return findByElement(scan, elements, 0, count);
    return range.isWhole ? findFailingFloat<screens::WholeRangeScreen>(scan, range, elements, count)
                         : findFailingFloat<screens::RangeScreen>(scan, range, elements, count);
  } else {
    if (!scan.has(ElementTest::kRange)) return count;
    const bool isScreened = scan.min == 1 && scan.max >= double(std::numeric_limits<T>::max());
    if (!isScreened) return findByElement(scan, elements, 0, count);
    const screens::CountingScreen<T> screen;
    return findWithScreens(scan, elements, count, screen, [&] { return screen; });
  }
}

template <NumericElement T>
ScanFinding runScan(const ElementScan& scan, const T* elements, std::size_t count) {
  const std::size_t first = findFailing(scan, elements, count);
  if (first == count) return {};
  if (const Failure end = examine(scan, elements[first]).end; end != Failure::kNone)
    return {end, first, first};
  // Out of range: what is left to find is an element that ends the scan.
  const ElementScan rest = withoutRange(scan);
  const std::size_t last = first + findFailing(rest, elements + first, count - first);
  if (last == count) return {Failure::kRange, first, first};
  return {examine(rest, elements[last]).end, first, last};
}

#define VGDT_INSTANTIATE(classID, Element)                                           \
  template std::size_t findFailing(const ElementScan&, const Element*, std::size_t); \
  template ScanFinding runScan(const ElementScan&, const Element*, std::size_t);
VG_NUMERIC_CLASSES(VGDT_INSTANTIATE)
#undef VGDT_INSTANTIATE

}  // namespace graphics::datatype::shaped
