#pragma once

/// The types that are measured, and what each asks of an element.

#include <graphics/datatype/shaped_types.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace arrays {

inline constexpr float kInfinity = std::numeric_limits<float>::infinity();
inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// The rows and columns of an array.
struct Shape {
  std::size_t m;
  std::size_t n;
};

/// NaN passes.
struct ColorMapRules {
  using Value = graphics::datatype::ColorMap;
  using Element = double;
  static constexpr const char* kName = "ColorMap";
  static constexpr vxClassID kClass = vxDOUBLE_CLASS;
  static constexpr bool kTakesNaN = true;
  static constexpr double kShareOfGoal = 1;
  static constexpr std::array<Element, 3> kInvalid{2, -0.5, kInfinity};

  static Shape shapeFor(std::size_t count) { return {count / 3, 3}; }
  static Element valid(std::uint32_t random) { return random % 1025 / 1024.0; }
  static bool passes(Element element) { return !(element < 0 || element > 1); }
};

struct PrimitiveVertexDataRules {
  using Value = graphics::datatype::PrimitiveVertexData;
  using Element = float;
  static constexpr const char* kName = "PrimitiveVertexData";
  static constexpr vxClassID kClass = vxSINGLE_CLASS;
  static constexpr bool kTakesNaN = false;
  static constexpr double kShareOfGoal = 1;
  static constexpr std::array<Element, 3> kInvalid{kNaN, kInfinity, -kInfinity};

  static Shape shapeFor(std::size_t count) { return {3, count / 3}; }
  static Element valid(std::uint32_t random) {
    return static_cast<float>(random % 200001) / 100 - 1000;
  }
  static bool passes(Element element) { return std::isfinite(element); }
};

struct PrimitiveVertexIndicesRules {
  using Value = graphics::datatype::PrimitiveVertexIndices;
  using Element = std::uint32_t;
  static constexpr const char* kName = "PrimitiveVertexIndices";
  static constexpr vxClassID kClass = vxUINT32_CLASS;
  static constexpr bool kTakesNaN = false;
  static constexpr double kShareOfGoal = 1;
  static constexpr std::array<Element, 1> kInvalid{0};

  static Shape shapeFor(std::size_t count) { return {1, count}; }
  static Element valid(std::uint32_t random) { return random | 1; }
  static bool passes(Element element) { return element != 0; }
};

/// Whole numbers of 32 bits from 1; NaN passes.
struct PatchFacesRules {
  using Value = graphics::datatype::PatchFaces;
  using Element = double;
  static constexpr const char* kName = "PatchFaces";
  static constexpr vxClassID kClass = vxDOUBLE_CLASS;
  static constexpr bool kTakesNaN = true;
  static constexpr double kShareOfGoal = 0.5;  ///< of the speed that is wanted of the others
  static constexpr std::array<Element, 4> kInvalid{0, 1.5, 3e9, kInfinity};
  static constexpr double kMax = std::numeric_limits<std::int32_t>::max();

  static Shape shapeFor(std::size_t count) { return {count / 4, 4}; }
  static Element valid(std::uint32_t random) { return random % 1000000 + 1; }
  static bool passes(Element element) {
    return std::isnan(element) ||
           (element >= 1 && element <= kMax && element == static_cast<std::int32_t>(element));
  }
};

}  // namespace arrays
