#pragma once

/// Why the types of colours refuse a value: the channel that is out of range, the size or class
/// that does not fit, or what a text may stand for.

#include "text/Explanation.h"

namespace vgdt {

Explanation explainRGBAColor(const Refusal& refusal);
Explanation explainMarkerColor(const Refusal& refusal);
Explanation explainMeshColor(const Refusal& refusal);
Explanation explainMeshAlpha(const Refusal& refusal);

}  // namespace vgdt
