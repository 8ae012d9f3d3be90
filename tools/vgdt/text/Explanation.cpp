#include "text/Explanation.h"

#include "text/Nearest.h"
#include "text/TextDisplay.h"

namespace vgdt {

std::optional<std::string> textTried(const Refusal& refusal) {
  if (refusal.given.route == GivenValue::Route::Text) return refusal.given.content;
  if (!refusal.array || vxGetClassID(refusal.array) != vxCHAR_CLASS) return std::nullopt;
  std::string text = vxArrayToStdString(refusal.array);
  return text.substr(0, text.find('\0'));
}

Explanation explainNames(const Refusal& refusal) {
  const std::optional<std::string> text = textTried(refusal);
  if (!text) return {};
  Explanation explanation;
  const auto names = namesAbbreviatedBy(*text, refusal.type);
  if (names.size() > 1) explanation.candidates = names;
  if (names.empty())
    explanation.nearest = nearestName(trimmed(*text), possibleValueTexts(refusal.type));
  return explanation;
}

}  // namespace vgdt
