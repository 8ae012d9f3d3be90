#include "session/SessionText.h"

#include "commands/Refusals.h"
#include "literal/LiteralPrinter.h"
#include "text/NumberText.h"
#include "text/Table.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <sstream>
#include <utility>

namespace vgdt {
namespace {

/// The literal of the value's array, or else its text.
std::vector<std::string> linesOf(const ValueForm& value) {
  if (value.array) return formatLiteralRows(value.array.get(), kMaxElements);
  if (value.text) return {*value.text};
  if (!value.arrayFailure) return {"none"};
  return {fmt::format("none: {}", value.arrayFailure->message.empty()
                                      ? nameOf(value.arrayFailure->kind)
                                      : value.arrayFailure->message)};
}

class ResultPrinter {
 public:
  explicit ResultPrinter(std::ostream& output) : output_(output) {}

  void operator()(std::monostate) {}
  void operator()(NoObject) { print("no object"); }
  void operator()(const std::string& name) { print(name); }
  void operator()(double number) { print(numberText(number)); }
  void operator()(const NameList& names) {
    for (const std::string& name : names)
      print(name);
  }
  void operator()(const PropertyValue& value) { (*this)(linesOf(value.value)); }
  void operator()(const PropertyValues& values) {
    Table table({"property", "type", "value"});
    for (const auto& [name, value] : values) {
      const std::vector<std::string> lines = linesOf(value.value);
      const std::string text = fmt::format("{}", fmt::join(lines, " "));
      table.add({name, value.type, onOneLine(text, kColumns)});
    }
    table.print(output_);
  }
  void operator()(const SessionState& state) {
    const auto yesOrNo = [](bool is) { return is ? "yes" : "no"; };
    Table table({"state", ""});
    table.add({"in a callback", yesOrNo(state.isInCallback)});
    table.add({"graphics status", std::to_string(state.vgStatus)});
    table.add({"error mode", std::to_string(state.errorMode)});
    table.add({"interrupt pending", yesOrNo(state.isInterruptPending)});
    table.add({"interrupt handled", yesOrNo(state.wasInterruptHandled)});
    table.print(output_);
  }

 private:
  void print(std::string_view text) { output_ << onOneLine(text) << '\n'; }

  std::ostream& output_;
};

class LogPrinter {
 public:
  explicit LogPrinter(std::ostream& output) : output_(output) {}

  void operator()(const std::string& line) { print(line); }
  void operator()(const vghost::Warning& warning) { print("Warning: " + warning.message); }
  void operator()(const LoggedReport& logged) {
    const auto& [identifier, message] = logged.report;
    print(identifier.empty() ? message : fmt::format("{} ({})", message, identifier));
    if (!logged.reason.empty()) print("  " + logged.reason);
  }
  void operator()(const LoggedResult& logged) { output_ << logged.text; }

 private:
  void print(std::string_view text) { output_ << onOneLine(text) << '\n'; }

  std::ostream& output_;
};

void printError(const Console& console, std::string_view place, std::string_view line,
                const Failure& failure, const ErrorDetails& details) {
  const ErrorDetails::RefusedValue* const refused = details.refused ? &*details.refused : nullptr;
  if (refused && failure.kind != FailureKind::Request) {
    const GivenValue given{GivenValue::Route::Array, refused->given};
    const std::string name = fmt::format("{}{} ({})", place, refused->property, refused->type.name);
    return explainRefusal(console, name, {refused->type, given, refused->array.get(), failure});
  }
  const std::string& text = failure.message.empty() ? nameOf(failure.kind) : failure.message;
  reportProblem(console, failure.identifier.empty()
                             ? fmt::format("{}{}", place, text)
                             : fmt::format("{}{} ({})", place, text, failure.identifier));
  if (details.place) console.errors << caretDisplay(line, *details.place) << '\n';
}

}  // namespace

std::string textOf(const SessionResult& result) {
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // failed memory would cut the text short without a word
  std::visit(ResultPrinter(text), result);
  return std::move(text).str();
}

void printSessionReply(const Console& console, std::string_view place, std::string_view line,
                       const SessionReply& reply) {
  for (const LogEntry& entry : reply.log)
    std::visit(LogPrinter(console.output), entry);
  std::visit(ResultPrinter(console.output), reply.result);
  console.output.flush();
  if (reply.failure) printError(console, place, line, *reply.failure, reply.details);
}

}  // namespace vgdt
