#pragma once

#include "requests/JsonWriter.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vgdt {

/// A JSON value of a request. Its destructor allocates nothing, unlike that of nlohmann::json, so
/// that a request can end where memory has run out.
struct JsonValue {
  enum class Kind { Null, Boolean, Number, String, List, Object };

  static JsonValue string(std::string content) {
    return {.kind = Kind::String, .text = std::move(content)};
  }

  bool isString() const { return kind == Kind::String; }
  bool isObject() const { return kind == Kind::Object; }
  /// The member of that name; null if there is none, or if this is no object.
  const JsonValue* find(std::string_view name) const;

  Kind kind = Kind::Null;
  std::string text = {};  ///< the content of a string; the JSON of a number or a boolean
  std::vector<JsonValue> elements = {};
  std::map<std::string, JsonValue, std::less<>> members = {};
};

/// The value on one line, members by name. Values may be nested as deep as requests may.
void writeJson(JsonWriter& writer, const JsonValue& value);
std::string jsonText(const JsonValue& value);

}  // namespace vgdt
