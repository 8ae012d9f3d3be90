#include "commands/Commands.h"
#include "commands/Refusals.h"
#include "literal/LiteralPrinter.h"
#include "requests/Requests.h"

#include <fmt/format.h>

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
  if (word.isNull() && !type.isImmediate()) printField(console.output, "value", "null");
  printField(console.output, "text", shownText(type, word));
  if (type.isImmediate()) printField(console.output, "word", wordText(word));
  if (type.isScalar) return;
  const vcos::ArrayOwner array = arrayOf(type, word);
  const std::string literal = formatLiteral(array.get(), kMaxElements);
  printField(console.output, "array",
             array ? fmt::format("{}  ({})", literal, sizeAndClass(array.get())) : "none");
}

ExitStatus convertForPeople(const Console& console, const Type& type, const GivenValue& given) {
  const ArrayScope scope;
  vcos::ArrayOwner array;
  try {
    if (given.route == GivenValue::Route::Array) array = readLiteral(type, given.content);
    const Value value = array ? Value(type, array.get()) : Value(type, given);
    printValue(console, type, value.word());
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
