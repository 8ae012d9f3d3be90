#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace graphics::datatype {

/// What the types tell the host of the size of their values; eight bits to the byte.
struct ReportedSize {
  std::string_view type;
  std::size_t bytes;
};

inline constexpr std::string_view kEnumeratedTypes = "enumerated types";
inline constexpr std::string_view kShapedTypes = "shaped array types";

/// Kept: callers rely on these numbers, also where they are not the size of the value class.
// clang-format off
inline constexpr ReportedSize kReportedSizes[] = {
    {kEnumeratedTypes, 24},
    {kShapedTypes, 8},  // one pointer, although the value object is larger
    {"BoundingVolume", 56},
    {"COSInterface", 8},
    {"Callback", 56},
    {"CaseInsensitiveString", 1},
    {"ColorTable", 0},
    {"FontName", 1},
    {"HandleOrEmpty", 16},
    {"Inset", 32},
    {"JavaPeer", 24},
    {"LightingStrength", 8},
    {"MarkerColor", 40},
    {"Matrix4x4", 128},
    {"MeshAlpha", 16},
    {"MeshColor", 40},
    {"NLineStyles", 32},
    {"NStrings", 24},
    {"NumericOrString", 16},
    {"Point2", 8},
    {"Point2d", 16},
    {"Point3", 24},
    {"Position", 32},
    {"Positive", 8},
    {"PositivePoint3", 24},
    {"RGBAColor", 40},
    {"Rectangle2", 16},
    {"ScreenPosition", 16},
    {"TextString", 16},
    {"UTF16String", 8},
    {"on_off", 1},
};
// clang-format on

/// Of a type, or of a family that has one size. A name without a row does not compile.
consteval std::size_t reportedBytes(std::string_view name) {
  const auto* row = std::ranges::find(kReportedSizes, name, &ReportedSize::type);
  if (row == std::end(kReportedSizes)) throw "give the type a row in kReportedSizes";
  return row->bytes;
}

}  // namespace graphics::datatype
