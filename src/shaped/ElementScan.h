#pragma once

/// The element scans, over arrays of one element type.

#include <graphics/datatype/shaped_rules.h>

#include <cmath>
#include <concepts>
#include <limits>

namespace graphics::datatype::shaped {

/// What the tests say of one element.
struct ElementFinding {
  bool isOutOfRange = false;
  Failure end = Failure::kNone;  ///< what ends the scan, if anything

  constexpr bool isFailure() const noexcept { return isOutOfRange || end != Failure::kNone; }
};

/// Elements are tested as doubles.
template <class Element>
ElementFinding examine(const ElementScan& scan, Element element) noexcept {
  constexpr bool isFloat = std::floating_point<Element>;
  const auto value = static_cast<double>(element);
  ElementFinding finding;
  for (const ElementTest test : scan.tests) {
    switch (test) {
      case ElementTest::kEnd:
        return finding;
      case ElementTest::kSkipNaN:
        if (std::isnan(value)) return finding;
        break;
      case ElementTest::kRange:
        finding.isOutOfRange |= value < scan.min || value > scan.max;
        break;
      case ElementTest::kWhole32:
        // The limits of the type are checked first: beyond them there is nothing to convert to.
        if (isFloat && !(value >= std::numeric_limits<std::int32_t>::min() &&
                         value <= std::numeric_limits<std::int32_t>::max() &&
                         static_cast<std::int32_t>(value) == value))
          return {finding.isOutOfRange, Failure::kType};
        break;
      case ElementTest::kNotNaN:
        if (std::isnan(value)) return {finding.isOutOfRange, Failure::kNaN};
        break;
      case ElementTest::kNotInf:
        if (std::isinf(value)) return {finding.isOutOfRange, Failure::kInf};
        break;
    }
  }
  return finding;
}

/// The index of the first element that fails a scan; `count` if there is none. Elements that pass
/// are read once, at memory speed; those behind a NaN or a negative zero that passes are read at
/// half of it.
template <NumericElement T>
std::size_t findFailing(const ElementScan& scan, const T* elements, std::size_t count);

/// How a scan ended.
struct ScanFinding {
  Failure failure = Failure::kNone;  ///< the last one
  std::size_t first = 0;             ///< index of the first element that failed
  std::size_t deciding = 0;          ///< and of the one that `failure` tells of
};
template <NumericElement T>
ScanFinding runScan(const ElementScan& scan, const T* elements, std::size_t count);

}  // namespace graphics::datatype::shaped
