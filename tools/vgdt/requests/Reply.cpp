#include "requests/Reply.h"

#include "requests/JsonForms.h"
#include "text/ColorForms.h"

namespace vgdt {
namespace {

using graphics::datatype::ColorNameTable;

/// Writes the members of an answer.
class AnswerWriter {
 public:
  explicit AnswerWriter(JsonWriter& writer) : writer_(writer) {}

  void operator()(const Failure& failure) {
    writer_.key("error");
    writeFailure(writer_, failure);
  }
  void operator()(const ValueAnswer& answer) {
    writer_.key("value");
    writeValue(writer_, answer.value);
    if (answer.comparison) {
      writer_.key("equal");
      writer_.boolean(answer.comparison->isEqual);
      writer_.key("compare");
      writer_.number(answer.comparison->compare);
    }
    if (!answer.java) return;
    writer_.key("java");
    writeJava(writer_, *answer.java);
  }
  void operator()(const TypeForm& form) {
    writer_.key("type");
    writeType(writer_, form);
  }
  void operator()(const TypeNames& names) {
    writer_.key("types");
    writeTexts(writer_, names);
  }
  void operator()(const ColorAnswer& answer) {
    writer_.key("inTable");
    writer_.boolean(answer.isInTable);
    if (answer.color) return writeChannels(*answer.color);
    writer_.key(answer.isInTable ? "ambiguous" : "missing");
    writer_.boolean(true);
  }
  void operator()(const NamedColors& colors) {
    writer_.key("colors");
    writeList(writer_, colors, [this](const NamedColors::value_type& entry) {
      writer_.openObject();
      writer_.key("name");
      writer_.text(entry.first);
      writeChannels(entry.second);
      writer_.closeObject();
    });
  }
  void operator()(const UnitsAnswer& answer) { writeNumbers("result", answer.result); }

 private:
  void writeChannels(const ColorNameTable::ColorValue& color) {
    writeNumbers("rgb", channelsOf(color));
  }
  template <class Numbers>
  void writeNumbers(std::string_view name, const Numbers& numbers) {
    writer_.key(name);
    writeList(writer_, numbers, [this](double number) { writer_.number(number); });
  }

  JsonWriter& writer_;
};

/// What the library has said meanwhile.
void writeOutput(JsonWriter& writer, const Reply& reply) {
  if (!reply.console.empty()) {
    writer.key("console");
    writeTexts(writer, reply.console);
  }
  if (!reply.warnings.empty()) {
    writer.key("warnings");
    writeList(writer, reply.warnings, [&writer](const vghost::Warning& warning) {
      writeMessage(writer, warning.identifier, warning.message);
    });
  }
}

}  // namespace

ExitStatus statusOf(const Failure& failure) {
  return failure.kind == FailureKind::Request ? kNotUnderstood : kRefused;
}

ExitStatus Reply::status() const {
  const auto* failure = std::get_if<Failure>(&answer);
  return failure ? statusOf(*failure) : kDone;
}

void writeReply(JsonWriter& writer, const JsonValue& request, const Reply& reply) {
  writer.openObject();
  if (const JsonValue* id = request.find("id")) {
    writer.key("id");
    writeJson(writer, *id);
  }
  writer.key("ok");
  writer.boolean(!std::holds_alternative<Failure>(reply.answer));
  std::visit(AnswerWriter(writer), reply.answer);
  writeOutput(writer, reply);
  writer.closeObject();
  writer.endLine();
}

}  // namespace vgdt
