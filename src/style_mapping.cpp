#include <graphics/datatype/style_mapping.h>

namespace graphics::datatype {
namespace {

/// A test of the user's style and the primitive's value where it holds.
template <class Style, class PrimStyle>
struct Mapping {
  bool (Style::*isStyle)() const noexcept;
  typename PrimStyle::value primitive;
};

constexpr Mapping<MarkerStyle, PrimMarkerStyle> kMarkers[] = {
    {&MarkerStyle::isPlus, PrimMarkerStyle::kPlus},
    {&MarkerStyle::isCircle, PrimMarkerStyle::kCircle},
    {&MarkerStyle::isAsterisk, PrimMarkerStyle::kAsterisk},
    {&MarkerStyle::isPoint, PrimMarkerStyle::kPoint},
    {&MarkerStyle::isX, PrimMarkerStyle::kX},
    {&MarkerStyle::isSquare, PrimMarkerStyle::kSquare},
    {&MarkerStyle::isDiamond, PrimMarkerStyle::kDiamond},
    {&MarkerStyle::isTriangle, PrimMarkerStyle::kTriangle},
    {&MarkerStyle::isPyramid, PrimMarkerStyle::kPyramid},
    {&MarkerStyle::isRight, PrimMarkerStyle::kRight},
    {&MarkerStyle::isLeft, PrimMarkerStyle::kLeft},
    {&MarkerStyle::isPentagram, PrimMarkerStyle::kPentagram},
    {&MarkerStyle::isHexagram, PrimMarkerStyle::kHexagram},
    {&MarkerStyle::isNone, PrimMarkerStyle::kNone},
};

constexpr Mapping<LineStyle, PrimLineStyle> kLines[] = {
    {&LineStyle::isSolid, PrimLineStyle::kSolid},
    {&LineStyle::isDashed, PrimLineStyle::kDashed},
    {&LineStyle::isDotted, PrimLineStyle::kDotted},
    {&LineStyle::isDashdot, PrimLineStyle::kDashdot},
    {&LineStyle::isNone, PrimLineStyle::kNone},
};

template <class Style, class PrimStyle, std::size_t count>
PrimStyle mapped(const Style& style, const Mapping<Style, PrimStyle> (&mappings)[count]) {
  for (const auto& [isStyle, primitive] : mappings)
    if ((style.*isStyle)()) return PrimStyle(primitive);
  return PrimStyle();
}

}  // namespace

PrimMarkerStyle convertMarkerStyleToPrimMarkerStyle(const MarkerStyle& style) {
  return mapped(style, kMarkers);
}

PrimLineStyle convertLineStyleToPrimLineStyle(const LineStyle& style) {
  return mapped(style, kLines);
}

}  // namespace graphics::datatype
