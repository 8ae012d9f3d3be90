#include "commands/Refusals.h"

#include "literal/Literal.h"
#include "text/TextDisplay.h"
#include "text/TypeWords.h"

#include <fmt/format.h>

#include <algorithm>

namespace vgdt {
namespace {

/// "a, b and c", of many the first few.
std::string listed(std::vector<std::string> names) {
  constexpr std::size_t kMaxNames = 12;
  if (const std::size_t count = names.size(); count > kMaxNames) {
    names.resize(kMaxNames - 1);
    names.push_back(fmt::format("{} more", count - names.size()));
  }
  std::ranges::transform(names, names.begin(), shortened);
  return fmt::format("{} and {}", fmt::join(names.begin(), names.end() - 1, ", "), names.back());
}

}  // namespace

void explainRefusal(const Console& console, const Refusal& refusal) {
  explainRefusal(console, refusal.type.name, refusal);
}

void explainRefusal(const Console& console, std::string_view name, const Refusal& refusal) {
  reportProblem(console, fmt::format("{} does not take this value", name));
  printRefusal(console.errors, refusal);
}

void printRefusal(std::ostream& stream, const Refusal& refusal) {
  const auto& [type, given, array, failure] = refusal;
  const bool hasIdentifier = !failure.identifier.empty();
  printField(stream, "error", hasIdentifier ? failure.identifier : nameOf(failure.kind));
  if (!failure.message.empty()) printField(stream, "message", failure.message);
  printField(stream, "given", given.content.empty() ? "''" : onOneLine(given.content, kColumns));
  const TypeWords words = wordsOf(type);
  Explanation explanation;
  if (failure.kind != FailureKind::Memory) explanation = words.explain(refusal);
  printField(stream, "refused", explanation.faults);
  if (!explanation.candidates.empty())
    printField(stream, "ambiguous", "between " + listed(explanation.candidates));
  std::vector<std::string> accepted = words.values;
  if (given.route == GivenValue::Route::Text)
    accepted.insert(accepted.begin(), words.texts.begin(), words.texts.end());
  printField(stream, "accepted", accepted);
  if (explanation.nearest)
    stream << fmt::format("  did you mean \"{}\"?\n", onOneLine(*explanation.nearest));
}

void reportRequestError(const Console& console, const std::string& literal,
                        const RequestError& error) {
  reportProblem(console, error.text());
  if (const auto* place = dynamic_cast<const LiteralError*>(&error))
    console.errors << caretDisplay(literal, place->position()) << '\n';
}

}  // namespace vgdt
