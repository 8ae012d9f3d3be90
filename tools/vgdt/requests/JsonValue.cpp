#include "requests/JsonValue.h"

#include <sstream>

namespace vgdt {

const JsonValue* JsonValue::find(std::string_view name) const {
  const auto found = members.find(name);
  return found == members.end() ? nullptr : &found->second;
}

void writeJson(JsonWriter& writer, const JsonValue& value) {
  switch (value.kind) {
    case JsonValue::Kind::Null:
      return writer.null();
    case JsonValue::Kind::Boolean:
    case JsonValue::Kind::Number:
      return writer.token(value.text);
    case JsonValue::Kind::String:
      return writer.text(value.text);
    case JsonValue::Kind::List:
      return writeList(writer, value.elements,
                       [&writer](const JsonValue& element) { writeJson(writer, element); });
    case JsonValue::Kind::Object:
      break;
  }
  writer.openObject();
  for (const auto& [name, member] : value.members) {
    writer.key(name);
    writeJson(writer, member);
  }
  writer.closeObject();
}

std::string jsonText(const JsonValue& value) {
  std::ostringstream text;
  JsonWriter writer(text);
  writeJson(writer, value);
  writer.flush();
  return text.str();
}

}  // namespace vgdt
