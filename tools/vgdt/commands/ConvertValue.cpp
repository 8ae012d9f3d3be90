#include "commands/Commands.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "requests/Requests.h"
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

/// What stands where a name is expected: the given text, or the text of the given char array.
std::optional<std::string> nameTried(const GivenValue& given, const vxArray* array) {
  if (given.route == GivenValue::Route::Text) return given.content;
  if (!array || vxGetClassID(array) != vxCHAR_CLASS) return std::nullopt;
  return vxArrayToStdString(array);
}

/// The array that a shaped array type has read from a text.
vcos::ArrayOwner arrayOfText(const graphics::datatype::shaped::ShapedType& rules,
                             const std::string& content) {
  namespace convert = gui_objects::convert_from_string_utils;
  const char* const text = content.c_str();
  const auto [rows, columns] = convert::parse_array_dimensions(text);
  return vcos::ArrayOwner(convert::parse_mxn(rows, columns, rules.storageClass, text));
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

/// "a, b and c".
std::string listed(const std::vector<std::string>& names) {
  return fmt::format("{} and {}", fmt::join(names.begin(), names.end() - 1, ", "), names.back());
}

/// Which tests of a shaped array type refused the array, and what it takes.
void explainShape(const Console& console, const graphics::datatype::shaped::ShapedType& rules,
                  const GivenValue& given, const vxArray* array, const Failure& failure) {
  const bool isText = given.route == GivenValue::Route::Text;
  if (failure.identifier.starts_with("VORTIL:vg:shaped_arrays:")) {
    const vcos::ArrayOwner ofText = isText ? arrayOfText(rules, given.content) : nullptr;
    printField(console.errors, "refused", refusals(rules, isText ? ofText.get() : array));
  }
  std::vector<std::string> accepted = acceptedWays(rules);
  if (isText) accepted.insert(accepted.begin(), acceptedText(rules));
  printField(console.errors, "accepted", accepted);
}

/// The names that a type takes, and those that were probably meant.
void explainNames(const Console& console, const Type& type, const GivenValue& given,
                  const vxArray* array) {
  const std::optional<std::string> text = nameTried(given, array);
  const auto candidates = text ? namesAbbreviatedBy(*text, type) : std::vector<std::string>();
  if (candidates.size() > 1)
    printField(console.errors, "ambiguous", "between " + listed(candidates));
  printField(console.errors, "accepted", acceptedValues(type));
  if (!text || !candidates.empty()) return;
  if (const auto nearest = nearestName(trimmed(*text), possibleValueTexts(type)))
    console.errors << fmt::format("  did you mean \"{}\"?\n", *nearest);
}

/// `array` is what a given literal describes.
void explainRefusal(const Console& console, const Type& type, const GivenValue& given,
                    const vxArray* array, const Failure& failure) {
  reportProblem(console, fmt::format("{} does not take this value", type.name));
  const bool hasIdentifier = !failure.identifier.empty();
  printField(console.errors, "error", hasIdentifier ? failure.identifier : nameOf(failure.kind));
  if (!failure.message.empty()) printField(console.errors, "message", failure.message);
  printField(console.errors, "given",
             given.content.empty() ? "''" : onOneLine(given.content, kColumns));
  if (const auto* rules = shapedRules(type))
    explainShape(console, *rules, given, array, failure);
  else
    explainNames(console, type, given, array);
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
    explainRefusal(console, type, given, array.get(), currentFailure());
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
