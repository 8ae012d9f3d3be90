#include "Commands.h"

#include "Describe.h"
#include "Eval.h"
#include "Literal.h"
#include "LiteralPrinter.h"
#include "Nearest.h"
#include "ShapedWords.h"
#include "Table.h"
#include "TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/convert_from_string_utils.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <set>
#include <utility>

namespace vgdt {
namespace {

constexpr std::size_t kMaxElements = 100;
constexpr std::size_t kColumns = 70;

void reportProblem(const Console& console, std::string_view problem) {
  console.errors << console.errorStyle.error("vgdt:") << ' ' << problem << '\n';
}

ExitStatus printReply(const Console& console, const Served& served) {
  console.output << dump(served.reply) << '\n';
  return served.status;
}

void printField(std::ostream& stream, std::string_view name, std::string_view value) {
  stream << "  " << padded(std::string(name), 12) << value << '\n';
}

/// One line for each value; none if there is none.
void printField(std::ostream& stream, std::string_view name,
                const std::vector<std::string>& values) {
  for (const std::string& value : values)
    printField(stream, std::exchange(name, ""), value);
}

// --- types ---------------------------------------------------------------------------------------

/// The default value as text, or else as its array.
std::string defaultText(const Type& type) {
  const vcos::COSValue value = type.access.dataType().getDefaultValue();
  if (const auto text = textOf(type, value)) return *text;
  const vcos::ArrayOwner array = arrayOf(type, value);
  return array ? formatLiteral(array.get(), kMaxElements) : "no value";
}

std::string valuesInShort(const Type& type) {
  const auto* rules = shapedRules(type);
  return rules ? acceptedInShort(*rules) : fmt::format("{}", fmt::join(acceptedValues(type), "; "));
}

std::vector<std::string> rowOf(const Type& type) {
  const vcos::COSDataType& dataType = type.access.dataType();
  return {type.name, familyOf(type), onOneLine(defaultText(type), 20),
          std::to_string(dataType.getValueSizeInBytes(dataType.getDefaultValue())),
          onOneLine(valuesInShort(type), 60)};
}

bool isFamily(const std::string& family, const std::vector<Type>& types, const Console& console) {
  std::set<std::string> known;
  for (const Type& type : types)
    known.insert(familyOf(type));
  if (known.contains(family)) return true;
  reportProblem(console, fmt::format("there is no family \"{}\"; the families are {}",
                                     onOneLine(family, kMaxQuoted), fmt::join(known, ", ")));
  return false;
}

// --- describe ------------------------------------------------------------------------------------

std::string shown(const Json& value) {
  return value.is_string() ? value.get<std::string>() : dump(value);
}

void printTrials(const Console& console, std::string_view title, const std::vector<Trial>& trials) {
  if (!trials.empty()) console.output << console.outputStyle.heading(title) << '\n';
  std::size_t width = 14;
  for (const Trial& trial : trials)
    width = std::max(width, displayWidth(trial.given));
  for (const Trial& trial : trials)
    console.output << "  " << padded(trial.given, width + 2) << validUtf8(trial.outcome) << '\n';
}

void printDescription(const Console& console, const Type& type) {
  const Json form = typeForm(type);
  console.output << console.outputStyle.heading(type.name) << '\n';
  const std::pair<const char*, std::string> fields[] = {
      {"full name", shown(form["dottedName"])},
      {"family", familyOf(type)},
      {"category", shown(form["category"])},
      {"declared as", shown(form["declarationName"])},
      {"storage", fmt::format("type {}", shown(form["storageType"]))},
      {"bits", shown(form["sizeInBits"])},
      {"value bytes", shown(form["valueSizeInBytes"])},
      {"default", defaultText(type)},
      {"finite", form["finite"] ? "yes" : "no"},
  };
  for (const auto& [name, value] : fields)
    printField(console.output, name, value);
  printField(console.output, "values", acceptedValues(type));
  if (const auto* rules = shapedRules(type))
    printField(console.output, "texts", acceptedText(*rules));
  const Examples examples = findExamples(type);
  printTrials(console, "takes", examples.taken);
  printTrials(console, "refuses", examples.refused);
}

// --- convert -------------------------------------------------------------------------------------

const char* memberOf(GivenValue::Route route) {
  return route == GivenValue::Route::Text ? "text" : "array";
}

/// The text that a user has given, on whichever route.
std::optional<std::string> givenText(const GivenValue& given) {
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
  static_cast<void>(failureOf([&] { text = givenText(given); }));
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

ExitStatus evaluateStream(const Console& console, std::istream& input, const std::string& name,
                          bool asTable) {
  const ExitStatus status =
      asTable ? tabulateLines(input, console.output) : evaluateLines(input, console.output);
  if (!input.eof()) reportProblem(console, fmt::format("{} cannot be read", name));
  return status;
}

}  // namespace

ExitStatus listTypes(const Console& console, const std::optional<std::string>& family,
                     bool asJson) {
  const std::vector<Type> types = libraryTypes();
  if (family && !isFamily(*family, types, console)) return kNotUnderstood;
  Table table({"name", "family", "default", "bytes", "values"});
  Json names = Json::array();
  for (const Type& type : types) {
    if (family && familyOf(type) != *family) continue;
    table.add(rowOf(type));
    names.push_back(type.name);
  }
  if (asJson)
    console.output << dump({{"ok", true}, {"types", names}}) << '\n';
  else
    table.print(console.output);
  return kDone;
}

ExitStatus describeType(const Console& console, const std::string& name, bool asJson) {
  if (asJson) return printReply(console, serveRequest({{"op", "describe"}, {"type", name}}));
  const ArrayScope scope;
  printDescription(console, requireType(name));
  return kDone;
}

ExitStatus convertValue(const Console& console, const std::string& name, const GivenValue& given,
                        bool asJson) {
  if (asJson)
    return printReply(console,
                      serveRequest({{"type", name}, {memberOf(given.route), given.content}}));
  return convertForPeople(console, requireType(name), given);
}

ExitStatus evaluate(const Console& console, const std::optional<std::string>& file, bool asTable) {
  if (!file || *file == "-") return evaluateStream(console, std::cin, "standard input", asTable);
  std::ifstream input(*file, std::ios::binary);
  return evaluateStream(console, input, *file, asTable);
}

}  // namespace vgdt
