#include "requests/Eval.h"

#include "literal/LiteralPrinter.h"
#include "requests/JsonForms.h"
#include "requests/LineReader.h"
#include "text/ColorForms.h"
#include "text/Table.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {
namespace {

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\v\f") == line.npos;
}

/// Serves the lines of `input`, each handed to `use` with its reply, for as long as `output` takes
/// what is written to it.
template <class Use>
ExitStatus serveLines(std::istream& input, const std::ostream& output, Use&& use) {
  ExitStatus worst = kDone;
  LineReader reader(input);
  for (auto read = reader.next(); output && read != LineReader::Result::End; read = reader.next()) {
    if (read == LineReader::Result::Line && isBlank(reader.line())) continue;
    const Served served = read == LineReader::Result::Line
                              ? serveLine(reader.line())
                              : Served{{}, badRequest("the line is longer than 8 MiB")};
    worst = std::max(worst, served.reply.status());
    use(reader.line(), served);
  }
  return input.eof() ? worst : kNotUnderstood;
}

/// A value's text as it is, or the literal of its array if the type has no text for it, or else the
/// JSON that stands in the text's place.
std::string shownText(const ValueForm& value) {
  constexpr std::size_t kMaxElements = 20;
  if (value.text) return *value.text;
  if (!value.isNull && value.array) return formatLiteral(value.array.get(), kMaxElements);
  std::ostringstream json;
  JsonWriter writer(json);
  writeText(writer, value);
  writer.flush();
  return json.str();
}

std::string outcomeText(const Reply& reply) {
  if (const auto* failure = std::get_if<Failure>(&reply.answer))
    return failure->identifier.empty() ? nameOf(failure->kind) : failure->identifier;
  if (const auto* answer = std::get_if<ValueAnswer>(&reply.answer))
    return "ok " + shownText(answer->value);
  if (const auto* answer = std::get_if<UnitsAnswer>(&reply.answer)) return "ok " + textOf(*answer);
  const auto* answer = std::get_if<ColorAnswer>(&reply.answer);
  if (!answer) return "ok";
  if (answer->color) return "ok " + channelsText(*answer->color);
  return answer->isInTable ? "ok, ambiguous" : "ok, missing";
}

std::string failureText(const Failure& failure) {
  return failure.message.empty() ? nameOf(failure.kind) : failure.message;
}

/// The text of a Java object, and why nothing came back from it.
std::string javaText(const JavaForm& form) {
  const auto& noText = form.failure ? form.failure : form.textFailure;
  std::string text = "Java: " + (noText ? failureText(*noText) : form.text.value_or("null"));
  if (form.arrayFailure) text += "; back: " + failureText(*form.arrayFailure);
  return text;
}

std::string messageText(const Reply& reply) {
  if (const auto* failure = std::get_if<Failure>(&reply.answer)) return failure->message;
  const auto* answer = std::get_if<ValueAnswer>(&reply.answer);
  if (!answer) return "";
  std::vector<std::string> parts;
  if (const auto& comparison = answer->comparison)
    parts.push_back(fmt::format("{}, compare {}", comparison->isEqual ? "equal" : "not equal",
                                comparison->compare));
  if (answer->java) parts.push_back(javaText(*answer->java));
  return fmt::format("{}", fmt::join(parts, "; "));
}

/// Empty if there is no such member.
std::string memberText(const JsonValue& request, const char* name) {
  const JsonValue* member = request.find(name);
  if (!member) return {};
  return member->isString() ? member->text : jsonText(*member);
}

/// "[1,1,2,2] inches to pixels, ppi 96".
std::string conversionText(const JsonValue& request) {
  std::string text = fmt::format("{} {} to {}", memberText(request, "value"),
                                 memberText(request, "from"), memberText(request, "to"));
  for (const char* name : {"ppi", "reference", "char", "origin"})
    if (request.find(name)) text += fmt::format(", {} {}", name, memberText(request, name));
  return text;
}

/// The value that a request gives and the one it is compared with, or what else it asks for; the
/// line itself where it is no request.
std::string askedText(std::string_view line, const JsonValue& request) {
  if (!request.isObject()) return std::string(line);
  if (request.find("what")) return conversionText(request);
  const std::string asked = routeAndContent(request);
  const JsonValue* operation = request.find("op");
  const JsonValue* name = request.find("name");
  if (asked.empty() && operation)
    return name ? fmt::format("{} {}", jsonText(*operation), jsonText(*name))
                : jsonText(*operation);
  const JsonValue* equals = request.find("equals");
  const bool isComparison = equals && equals->isObject();
  return isComparison ? fmt::format("{} = {}", asked, routeAndContent(*equals)) : asked;
}

std::vector<std::string> rowOf(std::string_view line, const Served& served) {
  constexpr std::size_t kTypeColumns = 20;
  constexpr std::size_t kGivenColumns = 44;
  constexpr std::size_t kOutcomeColumns = 56;
  constexpr std::size_t kMessageColumns = 100;
  const JsonValue& request = served.request;
  return {onOneLine(memberText(request, request.find("what") ? "what" : "type"), kTypeColumns),
          onOneLine(askedText(line, request), kGivenColumns),
          onOneLine(outcomeText(served.reply), kOutcomeColumns),
          onOneLine(messageText(served.reply), kMessageColumns)};
}

}  // namespace

ExitStatus evaluateLines(std::istream& input, std::ostream& output) {
  JsonWriter writer(output);
  return serveLines(input, output, [&writer](std::string_view, const Served& served) {
    writeReply(writer, served.request, served.reply);
  });
}

ExitStatus tabulateLines(std::istream& input, std::ostream& output) {
  Table table({"#", "type", "given", "outcome", "message"});
  std::size_t number = 0;
  const ExitStatus status =
      serveLines(input, output, [&](std::string_view line, const Served& served) {
        std::vector<std::string> row = rowOf(line, served);
        row.insert(row.begin(), std::to_string(++number));
        table.add(std::move(row));
      });
  table.print(output);
  return status;
}

}  // namespace vgdt
