#include "commands/Commands.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "text/Nearest.h"
#include "text/ShapedWords.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/convert_from_string_utils.h>

namespace vgdt {
namespace {

constexpr std::size_t kColumns = 70;

const char* memberOf(GivenValue::Route route) {
  return route == GivenValue::Route::Text ? "text" : "array";
}

/// The text that a user has given, on whichever route.
std::optional<std::string> textGiven(const GivenValue& given) {
  if (given.route == GivenValue::Route::Text) return given.content;
  const vcos::ArrayOwner array = parseLiteral(given.content);
  if (vxGetClassID(array.get()) != vxCHAR_CLASS) return std::nullopt;
  return vxArrayToStdString(array.get());
}

/// The array that a shaped array type has refused.
vcos::ArrayOwner givenArray(const graphics::datatype::shaped::ShapedType& rules,
                            const GivenValue& given) {
  namespace convert = gui_objects::convert_from_string_utils;
  if (given.route == GivenValue::Route::Array) return parseLiteral(given.content);
  const char* const text = given.content.c_str();
  const auto [rows, columns] = convert::parse_array_dimensions(text);
  return vcos::ArrayOwner(convert::parse_mxn(rows, columns, rules.storageClass, text));
}

/// A value may have no text, and still be one.
std::string shownText(const Type& type, vcos::COSValue word) {
  std::optional<std::string> text;
  if (const auto failure = failureOf([&] { text = textOf(type, word); }))
    return fmt::format("none: {}", failure->message.empty()
                                       ? "the conversion fails and says nothing"
                                       : onOneLine(failure->message));
  return text ? onOneLine(*text) : "none";
}

void printValue(const Console& console, const Type& type, vcos::COSValue word) {
  printField(console.output, "text", shownText(type, word));
  if (type.isImmediate()) printField(console.output, "word", wordText(word));
  if (type.isScalar) return;
  const vcos::ArrayOwner array = arrayOf(type, word);
  const std::string literal = formatLiteral(array.get(), kMaxElements);
  printField(
      console.output, "array",
      array ? fmt::format("{}  ({})", onOneLine(literal), sizeAndClass(array.get())) : "none");
}

/// "a, b and c".
std::string listed(const std::vector<std::string>& names) {
  return fmt::format("{} and {}", fmt::join(names.begin(), names.end() - 1, ", "), names.back());
}

/// Which tests of a shaped array type refused the array, and what it takes.
void explainShape(const Console& console, const graphics::datatype::shaped::ShapedType& rules,
                  const GivenValue& given, const Failure& failure) {
  if (failure.identifier.starts_with("VORTIL:vg:shaped_arrays:"))
    printField(console.errors, "refused", refusals(rules, givenArray(rules, given).get()));
  std::vector<std::string> accepted = acceptedWays(rules);
  if (given.route == GivenValue::Route::Text)
    accepted.insert(accepted.begin(), acceptedText(rules));
  printField(console.errors, "accepted", accepted);
}

void explainRefusal(const Console& console, const Type& type, const GivenValue& given,
                    const Failure& failure) {
  reportProblem(console, fmt::format("{} does not take this value", type.name));
  const bool hasIdentifier = !failure.identifier.empty();
  printField(console.errors, "error", hasIdentifier ? failure.identifier : nameOf(failure.kind));
  if (!failure.message.empty()) printField(console.errors, "message", onOneLine(failure.message));
  printField(console.errors, "given",
             given.content.empty() ? "''" : onOneLine(given.content, kColumns));
  if (const auto* rules = shapedRules(type)) return explainShape(console, *rules, given, failure);
  std::optional<std::string> text;
  static_cast<void>(failureOf([&] { text = textGiven(given); }));
  const auto candidates = text ? namesAbbreviatedBy(*text, type) : std::vector<std::string>();
  if (candidates.size() > 1)
    printField(console.errors, "ambiguous", "between " + listed(candidates));
  printField(console.errors, "accepted", acceptedValues(type));
  if (!text || !candidates.empty()) return;
  if (const auto nearest = nearestName(trimmed(*text), possibleValueTexts(type)))
    console.errors << fmt::format("  did you mean \"{}\"?\n", *nearest);
}

ExitStatus convertForPeople(const Console& console, const Type& type, const GivenValue& given) {
  const ArrayScope scope;
  try {
    const Value value(type, given);
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
    explainRefusal(console, type, given, currentFailure());
    return kRefused;
  }
}

}  // namespace

ExitStatus convertValue(const Console& console, const std::string& name, const GivenValue& given,
                        bool asJson) {
  if (asJson)
    return printReply(console,
                      serveRequest({{"type", name}, {memberOf(given.route), given.content}}));
  return convertForPeople(console, requireType(name), given);
}

}  // namespace vgdt
