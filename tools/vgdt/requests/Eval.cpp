#include "requests/Eval.h"

#include "requests/LineReader.h"
#include "text/Table.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {
namespace {

using nlohmann::json;

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
                              : badRequest(nullptr, "the line is longer than 8 MiB");
    worst = std::max(worst, served.status);
    use(reader.line(), served);
  }
  return input.eof() ? worst : kNotUnderstood;
}

std::string outcomeText(const Json& reply) {
  if (reply.contains("error")) {
    const Json& error = reply["error"];
    const std::string identifier = error["id"];
    return identifier.empty() ? error["kind"].get<std::string>() : identifier;
  }
  if (!reply.contains("value")) return "ok";
  const Json& text = reply["value"]["text"];
  return fmt::format("ok {}", text.is_string() ? text.get<std::string>() : dump(text));
}

std::string messageText(const Json& reply) {
  if (reply.contains("error")) return reply["error"]["message"];
  if (!reply.contains("equal")) return "";
  return fmt::format("{}, compare {}", reply["equal"] ? "equal" : "not equal",
                     reply["compare"].get<int>());
}

std::string typeText(const json& request) {
  if (!request.is_object() || !request.contains("type")) return {};
  const json& type = request["type"];
  return type.is_string() ? type.get<std::string>() : type.dump();
}

/// The value that a request gives and the one it is compared with, or what else it asks for; the
/// line itself where it is no request.
std::string askedText(std::string_view line, const json& request) {
  if (!request.is_object()) return std::string(line);
  const std::string given = givenText(request);
  if (given.empty() && request.contains("op")) return dump(Json(request["op"]));
  const bool isComparison = request.contains("equals") && request["equals"].is_object();
  return isComparison ? fmt::format("{} = {}", given, givenText(request["equals"])) : given;
}

std::vector<std::string> rowOf(std::string_view line, const Served& served) {
  constexpr std::size_t kTypeColumns = 20;
  constexpr std::size_t kGivenColumns = 32;
  constexpr std::size_t kOutcomeColumns = 56;
  constexpr std::size_t kMessageColumns = 100;
  return {onOneLine(typeText(served.request), kTypeColumns),
          onOneLine(askedText(line, served.request), kGivenColumns),
          onOneLine(outcomeText(served.reply), kOutcomeColumns),
          onOneLine(messageText(served.reply), kMessageColumns)};
}

}  // namespace

ExitStatus evaluateLines(std::istream& input, std::ostream& output) {
  return serveLines(input, output, [&output](std::string_view, const Served& served) {
    output << dump(served.reply) << '\n' << std::flush;
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
