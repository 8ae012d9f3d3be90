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

/// Kept: callers rely on these numbers where they are not the size of the value class, too.
inline constexpr ReportedSize kReportedSizes[] = {
    {kEnumeratedTypes, 24}, {kShapedTypes, 8},  // one pointer, although the value object is larger
    {"ColorTable", 0},      {"CaseInsensitiveString", 1},
    {"FontName", 1},        {"on_off", 1},
    {"COSInterface", 8},    {"LightingStrength", 8},
    {"Point2", 8},          {"Positive", 8},
    {"UTF16String", 8},     {"HandleOrEmpty", 16},
    {"MeshAlpha", 16},      {"NumericOrString", 16},
    {"Point2d", 16},        {"Rectangle2", 16},
    {"ScreenPosition", 16}, {"TextString", 16},
    {"JavaPeer", 24},       {"NStrings", 24},
    {"Point3", 24},         {"PositivePoint3", 24},
    {"Inset", 32},          {"NLineStyles", 32},
    {"Position", 32},       {"MarkerColor", 40},
    {"MeshColor", 40},      {"RGBAColor", 40},
    {"BoundingVolume", 56}, {"Callback", 56},
    {"Matrix4x4", 128},
};

/// Of a type, or of a family that has one size. A name without a row does not compile.
consteval std::size_t reportedBytes(std::string_view name) {
  const auto* row = std::ranges::find(kReportedSizes, name, &ReportedSize::type);
  if (row == std::end(kReportedSizes)) throw "give the type a row in kReportedSizes";
  return row->bytes;
}

}  // namespace graphics::datatype
