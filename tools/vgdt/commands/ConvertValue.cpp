#include "JavaValues.h"
#include "commands/Commands.h"
#include "commands/Refusals.h"
#include "literal/LiteralPrinter.h"
#include "requests/Requests.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <gui_objects/UTF16String.h>
#include <messages/ustring.h>

namespace vgdt {
namespace {

const char* memberOf(GivenValue::Route route) {
  return route == GivenValue::Route::Text ? "text" : "array";
}

std::string noneSince(const Failure& failure) {
  return fmt::format("none: {}", failure.message.empty() ? "the conversion fails and says nothing"
                                                         : failure.message);
}

/// A value may have no text, and still be one.
std::string shownText(const Type& type, vcos::COSValue word) {
  std::optional<std::string> text;
  if (const auto failure = failureOf([&] { text = textOf(type, word); }))
    return noneSince(*failure);
  return text.value_or("none");
}

bool isText(const vxArray* array) {
  return array && vxGetClassID(array) == vxCHAR_CLASS;
}

bool isTextOrTexts(const vxArray* array) {
  if (!array || vxGetClassID(array) != vxCELL_CLASS) return isText(array);
  for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
    if (!isText(vxGetCell(array, i))) return false;
  return true;
}

/// The lines of a text with control characters, of which a literal has only the codes.
std::vector<std::string> escapedLines(const vxArray* array) {
  constexpr std::size_t kMaxLines = 20;
  if (!isTextOrTexts(array)) return {};
  const auto lines = gui_objects::createUTF16StringsFromArray(array);
  std::vector<std::string> shown;
  bool hasEscapes = false;
  for (const auto& line : lines) {
    const std::string text = fl::i18n::to_utf8(line.data(), line.size());
    hasEscapes = hasEscapes || onOneLine(text) != text;
    if (shown.size() < kMaxLines) shown.push_back(onOneLine(text, kColumns));
  }
  if (lines.size() > kMaxLines) shown.push_back(fmt::format("... {} lines", lines.size()));
  return hasEscapes ? shown : std::vector<std::string>();
}

void printArray(std::ostream& output, const char* name, const vxArray* array) {
  if (!array) return printField(output, name, "none");
  std::vector<std::string> literal = formatLiteralRows(array, kMaxElements);
  literal.back() += fmt::format("  ({})", sizeAndClass(array));
  printField(output, name, literal);
  printField(output, "escaped", escapedLines(array));
}

void printValue(const Console& console, const Type& type, vcos::COSValue word) {
  if (word.isNull() && !type.isImmediate()) printField(console.output, "value", "null");
  printField(console.output, "text", shownText(type, word));
  if (type.isImmediate()) printField(console.output, "word", wordText(word));
  if (type.isScalar) return;
  const vcos::ArrayOwner array = arrayOf(type, word);
  printArray(console.output, "array", array.get());
}

void printJava(std::ostream& output, const JavaForm& form) {
  constexpr std::size_t kMaxColumns = 1000;
  const auto printText = [&output](const char* name, const std::optional<std::string>& text,
                                   const std::optional<Failure>& failure) {
    printField(output, name,
               failure ? noneSince(*failure) : onOneLine(text.value_or("null"), kMaxColumns));
  };
  printText("Java class", form.className, form.failure);
  if (form.failure) return;
  if (form.className) printText("Java text", form.text, form.textFailure);
  if (form.arrayFailure) return printField(output, "came back", noneSince(*form.arrayFailure));
  printArray(output, "came back", form.array.get());
  printField(output, "equal", form.isEqual ? "yes" : "no");
}

ExitStatus convertForPeople(const Console& console, const Type& type, const GivenValue& given,
                            bool withJava) {
  const ArrayScope scope;
  vcos::ArrayOwner array;
  try {
    if (given.route == GivenValue::Route::Array) array = readLiteral(type, given.content);
    std::optional<JavaAccess> java;
    if (withJava) java.emplace(type);
    const Value value = array ? Value(type, array.get()) : Value(type, given);
    std::optional<JavaForm> form;
    if (java) form = java->formOf(value.word());
    printValue(console, type, value.word());
    if (form) printJava(console.output, *form);
    return kDone;
  } catch (const RequestError& error) {
    reportRequestError(console, given.content, error);
    return kNotUnderstood;
  } catch (...) {
    explainRefusal(console, {type, given, array.get(), currentFailure()});
    return kRefused;
  }
}

}  // namespace

ExitStatus convertValue(const Console& console, const std::string& name, const GivenValue& given,
                        const ConvertOptions& options) {
  if (options.asJson) {
    JsonValue request = requestOf({{"type", name}, {memberOf(given.route), given.content}});
    if (options.withJava)
      request.members.emplace("java", JsonValue{.kind = JsonValue::Kind::Boolean, .text = "true"});
    return printReply(console, serveRequest(request));
  }
  const HostOutput output;
  const ExitStatus status = convertForPeople(console, requireType(name), given, options.withJava);
  output.print(console.errors);
  return status;
}

}  // namespace vgdt
