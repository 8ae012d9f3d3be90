#include "sheet/JsonReports.h"

#include "literal/LiteralPrinter.h"
#include "requests/JsonForms.h"

namespace vgdt {
namespace {

std::optional<std::string> givenLiteral(const SheetRefusal& refusal) {
  if (refusal.literal) return refusal.literal;
  if (refusal.array) return formatLiteral(refusal.array);
  return std::nullopt;
}

}  // namespace

void JsonReports::addText(std::string_view name, std::string_view text) {
  writer_.key(name);
  writer_.text(text);
}

void JsonReports::addText(std::string_view name, const std::optional<std::string>& text) {
  if (text) addText(name, std::string_view(*text));
}

template <class Number>
void JsonReports::addNumber(std::string_view name, Number number) {
  writer_.key(name);
  writer_.number(number);
}

void JsonReports::add(const SheetRefusal& refusal) {
  // What may fail comes before the line begins.
  const std::optional<std::string> given = givenLiteral(refusal);
  const auto* const accepted =
      refusal.known && refusal.isOfType ? &refusal.known->accepted() : nullptr;
  writer_.openObject();
  addText("file", refusal.file);
  addNumber("line", refusal.line);
  addText("pointer", std::string_view(refusal.pointer));
  addText("object", refusal.object);
  addText("class", refusal.className);
  addText("property", refusal.property);
  if (refusal.known) addText("type", std::string_view(refusal.known->type().name));
  addText("given", given);
  writer_.key("error");
  writeFailure(writer_, refusal.failure);
  if (accepted) {
    writer_.key("accepted");
    writeTexts(writer_, *accepted);
  }
  writer_.closeObject();
  writer_.endLine();
}

void JsonReports::finish(const SheetTotals& totals) {
  writer_.openObject();
  addNumber("objects", totals.objects);
  addNumber("values", totals.values);
  addNumber("refused", totals.refused);
  writer_.closeObject();
  writer_.endLine();
}

}  // namespace vgdt
