#pragma once

#include <graphics/datatype/shaped_rules.h>

#include <cmath>
#include <type_traits>

/// The element scans of the types, written by hand, and what a plain loop finds by any scan.
namespace test {

using graphics::datatype::shaped::ElementScan;
using graphics::datatype::shaped::ElementTest;
using graphics::datatype::shaped::Failure;
using graphics::datatype::shaped::Finding;
using enum graphics::datatype::shaped::ElementTest;

constexpr double kNaN = NAN;
constexpr double kInf = INFINITY;

constexpr ElementScan kFinite{{kNotNaN, kNotInf}};
constexpr ElementScan kFiniteGated{{kNotNaN, kNotInf}, 0, 0, true};
constexpr ElementScan kColorMap{{kSkipNaN, kRange, kNotInf}, 0, 1};
constexpr ElementScan kColorOrder{{kRange, kNotNaN, kNotInf}, 0, 1};
constexpr ElementScan kCurvature{{kRange, kNotNaN}, 0, 1, true};
constexpr ElementScan kNormals{{kRange, kNotNaN, kNotInf}, -1, 1, true};
constexpr ElementScan kIndices{{kRange}, 1, kInf, true};
constexpr ElementScan kFaces{{kSkipNaN, kRange, kWhole32, kNotInf}, 1, kInf};

/// Added to what was found before. Elements of integer classes take no test but that of the range.
template <class T>
Finding plainFinding(const ElementScan& scan, const T* elements, std::size_t count,
                     bool areFloats = std::is_floating_point_v<T>, Finding finding = {}) {
  for (std::size_t i = 0; i < count; ++i) {
    const auto x = static_cast<double>(elements[i]);
    const bool isInt32 = std::trunc(x) == x && x >= -2147483648.0 && x <= 2147483647.0;
    bool isOutOfRange = false;
    Failure end = Failure::kNone;
    for (const ElementTest test : scan.tests) {
      if (test == kEnd || (test == kSkipNaN && std::isnan(x)) || end != Failure::kNone) break;
      isOutOfRange |= test == kRange && (x < scan.min || x > scan.max);
      if (test == kWhole32 && areFloats && !isInt32) end = Failure::kType;
      if (test == kNotNaN && std::isnan(x)) end = Failure::kNaN;
      if (test == kNotInf && std::isinf(x)) end = Failure::kInf;
    }
    if (!isOutOfRange && end == Failure::kNone) continue;
    if (!finding.firstElement) finding.firstElement = finding.decidingElement = i;
    finding.failure = end == Failure::kNone ? Failure::kRange : end;
    if (end == Failure::kNone) continue;
    finding.decidingElement = i;
    break;
  }
  return finding;
}

}  // namespace test
