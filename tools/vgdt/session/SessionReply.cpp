#include "session/SessionReply.h"

#include "requests/JsonForms.h"

#include <sstream>
#include <utility>

namespace vgdt {
namespace {

class ResultWriter {
 public:
  explicit ResultWriter(JsonWriter& writer) : writer_(writer) {}

  void operator()(std::monostate) {}
  void operator()(NoObject) { writer_.null(); }
  void operator()(const std::string& name) { writer_.text(name); }
  void operator()(double number) { writer_.number(number); }
  void operator()(const NameList& names) { writeTexts(writer_, names); }
  void operator()(const PropertyValue& value) { writeValue(writer_, value.value, value.type); }
  void operator()(const PropertyValues& values) {
    writer_.openObject();
    for (const auto& [name, value] : values) {
      writer_.key(name);
      (*this)(value);
    }
    writer_.closeObject();
  }
  void operator()(const SessionState& state) {
    writer_.openObject();
    addMember("inCallback", state.isInCallback);
    addMember("vgStatus", state.vgStatus);
    addMember("errorMode", state.errorMode);
    addMember("interruptPending", state.isInterruptPending);
    addMember("interruptHandled", state.wasInterruptHandled);
    writer_.closeObject();
  }

 private:
  template <class T>
  void addMember(std::string_view name, T value) {
    writer_.key(name);
    writer_.number(value);
  }

  JsonWriter& writer_;
};

class LogWriter {
 public:
  explicit LogWriter(JsonWriter& writer) : writer_(writer) {}

  void operator()(const std::string& line) { writer_.text(line); }
  void operator()(const vghost::Warning& warning) {
    add("warning", [&] { writeMessage(writer_, warning.identifier, warning.message); });
  }
  void operator()(const LoggedReport& logged) {
    add("report", [&] { writeMessage(writer_, logged.report.identifier, logged.report.message); });
  }
  void operator()(const LoggedResult& logged) {
    add("result", [&] { writer_.token(logged.json); });
  }

 private:
  template <class Write>
  void add(std::string_view name, Write&& write) {
    writer_.openObject();
    writer_.key(name);
    write();
    writer_.closeObject();
  }

  JsonWriter& writer_;
};

}  // namespace

std::string jsonOf(const SessionResult& result) {
  std::ostringstream json;
  json.exceptions(std::ios::badbit);  // failed memory would cut the text short without a word
  JsonWriter writer(json);
  std::visit(ResultWriter(writer), result);
  writer.flush();
  return std::move(json).str();
}

void writeSessionReply(JsonWriter& writer, std::size_t line, const SessionReply& reply) {
  writer.openObject();
  writer.key("line");
  writer.number(line);
  writer.key("ok");
  writer.boolean(!reply.failure);
  if (!std::holds_alternative<std::monostate>(reply.result)) {
    writer.key("result");
    std::visit(ResultWriter(writer), reply.result);
  }
  if (reply.failure) {
    writer.key("error");
    writeFailure(writer, *reply.failure);
  }
  if (!reply.log.empty()) {
    writer.key("log");
    writeList(writer, reply.log,
              [&writer](const LogEntry& entry) { std::visit(LogWriter(writer), entry); });
  }
  writer.closeObject();
  writer.endLine();
}

}  // namespace vgdt
