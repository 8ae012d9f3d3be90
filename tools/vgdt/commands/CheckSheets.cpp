#include "commands/Commands.h"
#include "commands/Refusals.h"
#include "literal/LiteralPrinter.h"
#include "sheet/JsonPlace.h"
#include "sheet/JsonReports.h"
#include "sheet/JsonSyntax.h"
#include "sheet/SheetChecker.h"
#include "sheet/SheetFile.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <sstream>

namespace vgdt {
namespace {

/// "main", or "Line(/children/0)" for an object without a name.
std::string objectText(const SheetRefusal& refusal) {
  if (refusal.object && !refusal.object->empty()) return shortened(*refusal.object);
  const std::string className = shortened(refusal.className.value_or("object"));
  return refusal.objectPointer.empty() ? className
                                       : fmt::format("{}({})", className, refusal.objectPointer);
}

/// "figure.json:12: main.Color (RGBAColor)".
std::string headingText(const SheetRefusal& refusal) {
  std::string text = fmt::format("{}:{}: {}", refusal.file, refusal.line, objectText(refusal));
  if (refusal.property) text += '.' + shortened(*refusal.property);
  if (refusal.known) text += fmt::format(" ({})", refusal.known->type().name);
  return onOneLine(text);
}

/// The literal that was given or that would describe the array, or else the JSON.
std::string givenText(const SheetRefusal& refusal) {
  if (refusal.literal) return *refusal.literal;
  if (refusal.array) return formatLiteral(refusal.array, kMaxElements);
  return std::string(refusal.json.substr(0, 4 * kColumns));
}

/// For people, on standard error; the totals are what was asked for.
class PrintedReports final : public SheetReports {
 public:
  explicit PrintedReports(const Console& console) : console_(console) {}

  void add(const SheetRefusal& refusal) override {
    std::ostringstream text;
    text << console_.errorStyle.heading(headingText(refusal)) << '\n';
    if (refusal.failure.kind == FailureKind::Request)
      printRequest(text, refusal);
    else
      printRefusal(text, {refusal.known->type(),
                          {GivenValue::Route::Array, givenText(refusal)},
                          refusal.array,
                          refusal.failure});
    printField(text, "console", refusal.said);
    console_.errors << text.str();
  }

  void finish(const SheetTotals& totals) override {
    const auto counted = [](std::uint64_t count, const char* what) {
      return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
    };
    console_.output << fmt::format("{}, {}, {}\n", counted(totals.objects, "object"),
                                   counted(totals.values, "value"),
                                   counted(totals.refused, "refusal"));
  }

 private:
  static void printRequest(std::ostream& text, const SheetRefusal& refusal) {
    printField(text, "error", nameOf(refusal.failure.kind));
    printField(text, "message", refusal.failure.message);
    const std::string given = givenText(refusal);
    if (refusal.caret)
      printCaret(text, caretDisplay(given, *refusal.caret));
    else
      printField(text, "given", onOneLine(given, kColumns));
    if (refusal.isOfType) printField(text, "accepted", refusal.known->accepted());
  }

  static void printCaret(std::ostream& text, const std::string& display) {
    const std::size_t end = display.find('\n');
    printField(text, "given", display.substr(0, end));
    printField(text, "", display.substr(end + 1));
  }

  const Console& console_;
};

/// "FILE:LINE: column 5: expected a value".
std::string errorText(const std::string& name, std::string_view text, const JsonError& error) {
  const char* const place = text.data() + error.position();
  const std::size_t line = LineCounter(text.data()).lineOf(place);
  const std::string_view before = text.substr(0, error.position());
  const std::size_t lineBegin = before.rfind('\n') + 1;
  return fmt::format("{}:{}: column {}: {}", name, line,
                     columnOf(text.substr(lineBegin), error.position() - lineBegin), error.text());
}

/// Checks files one after the other.
class SheetCheck {
 public:
  SheetCheck(const Console& console, SheetReports& reports, bool showsProgress)
      : console_(console),
        reports_(reports),
        terminal_(showsProgress ? &console.errors : nullptr) {}

  void addFile(const std::string& name) {
    const auto failure = failureOf([&] { check(name); });
    if (!failure) return;
    isBroken_ = true;
    reportProblem(console_, failure->kind == FailureKind::Request
                                ? failure->message
                                : fmt::format("{}: {}", name, failure->message));
  }

  ExitStatus finish() {
    reports_.finish(totals_);
    if (isBroken_) return kNotUnderstood;
    return totals_.refused == 0 ? kDone : kRefused;
  }

 private:
  void check(const std::string& name) {
    const SheetFile file(name);
    Progress progress(terminal_, name, file.text().size());
    try {
      requireJson(file.text());
    } catch (const JsonError& error) {
      throw RequestError(errorText(name, file.text(), error));
    }
    checkSheet({name, file.text()}, classes_, reports_, progress, totals_);
  }

  const Console& console_;
  SheetReports& reports_;
  std::ostream* terminal_;
  SheetClasses classes_;
  SheetTotals totals_;
  bool isBroken_ = false;
};

}  // namespace

ExitStatus checkSheets(const Console& console, const std::vector<std::string>& files, bool asJson,
                       bool showsProgress) {
  PrintedReports forPeople(console);
  JsonReports asLines(console.output);
  SheetReports& reports = asJson ? static_cast<SheetReports&>(asLines) : forPeople;
  SheetCheck check(console, reports, showsProgress);
  for (const std::string& file : files)
    check.addFile(file);
  return check.finish();
}

}  // namespace vgdt
