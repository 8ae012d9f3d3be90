#include "commands/Commands.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "requests/Requests.h"
#include "text/TextDisplay.h"
#include "text/TypeWords.h"

#include <fmt/format.h>

#include <algorithm>

namespace vgdt {
namespace {

const char* memberOf(GivenValue::Route route) {
  return route == GivenValue::Route::Text ? "text" : "array";
}

/// A value may have no text, and still be one.
std::string shownText(const Type& type, vcos::COSValue word) {
  std::optional<std::string> text;
  if (const auto failure = failureOf([&] { text = textOf(type, word); }))
    return fmt::format("none: {}", failure->message.empty()
                                       ? "the conversion fails and says nothing"
                                       : failure->message);
  return text.value_or("none");
}

void printValue(const Console& console, const Type& type, vcos::COSValue word) {
  printField(console.output, "text", shownText(type, word));
  if (type.isImmediate()) printField(console.output, "word", wordText(word));
  if (type.isScalar) return;
  const vcos::ArrayOwner array = arrayOf(type, word);
  const std::string literal = formatLiteral(array.get(), kMaxElements);
  printField(console.output, "array",
             array ? fmt::format("{}  ({})", literal, sizeAndClass(array.get())) : "none");
}

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

void explainRefusal(const Console& console, const Refusal& refusal) {
  const auto& [type, given, array, failure] = refusal;
  reportProblem(console, fmt::format("{} does not take this value", type.name));
  const bool hasIdentifier = !failure.identifier.empty();
  printField(console.errors, "error", hasIdentifier ? failure.identifier : nameOf(failure.kind));
  if (!failure.message.empty()) printField(console.errors, "message", failure.message);
  printField(console.errors, "given",
             given.content.empty() ? "''" : onOneLine(given.content, kColumns));
  const TypeWords words = wordsOf(type);
  Explanation explanation;
  if (failure.kind != FailureKind::Memory) explanation = words.explain(refusal);
  printField(console.errors, "refused", explanation.faults);
  if (!explanation.candidates.empty())
    printField(console.errors, "ambiguous", "between " + listed(explanation.candidates));
  std::vector<std::string> accepted = words.values;
  if (given.route == GivenValue::Route::Text)
    accepted.insert(accepted.begin(), words.texts.begin(), words.texts.end());
  printField(console.errors, "accepted", accepted);
  if (explanation.nearest)
    console.errors << fmt::format("  did you mean \"{}\"?\n", onOneLine(*explanation.nearest));
}

ExitStatus convertForPeople(const Console& console, const Type& type, const GivenValue& given) {
  const ArrayScope scope;
  vcos::ArrayOwner array;
  try {
    if (given.route == GivenValue::Route::Array) array = readLiteral(type, given.content);
    const Value value = array ? Value(type, array.get()) : Value(type, given);
    printValue(console, type, value.word());
    return kDone;
  } catch (const LiteralError& error) {
    reportProblem(console, error.what());
    console.errors << caretDisplay(given.content, error.position()) << '\n';
    return kNotUnderstood;
  } catch (const RequestError& error) {
    reportProblem(console, error.what());
    return kNotUnderstood;
  } catch (...) {
    explainRefusal(console, {type, given, array.get(), currentFailure()});
    return kRefused;
  }
}

}  // namespace

ExitStatus convertValue(const Console& console, const std::string& name, const GivenValue& given,
                        bool asJson) {
  if (asJson)
    return printReply(
        console, serveRequest(requestOf({{"type", name}, {memberOf(given.route), given.content}})));
  const HostOutput output;
  const ExitStatus status = convertForPeople(console, requireType(name), given);
  output.print(console.errors);
  return status;
}

}  // namespace vgdt
