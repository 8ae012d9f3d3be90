#include "requests/RequestParser.h"

#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <utility>
#include <vector>

namespace vgdt {
namespace {

using nlohmann::json;

/// Builds the document event by event. Of two equal members the last counts.
class DocumentBuilder final : public nlohmann::json_sax<json> {
 public:
  using Kind = JsonValue::Kind;

  bool null() override { return add(Kind::Null, ""); }
  bool boolean(bool value) override { return add(Kind::Boolean, value ? "true" : "false"); }
  bool number_integer(json::number_integer_t value) override {
    return add(Kind::Number, std::to_string(value));
  }
  bool number_unsigned(json::number_unsigned_t value) override {
    return add(Kind::Number, std::to_string(value));
  }
  bool number_float(json::number_float_t value, const std::string&) override {
    return add(Kind::Number, json(value).dump());
  }
  bool string(std::string& value) override { return add(Kind::String, std::move(value)); }
  bool binary(json::binary_t&) override { return add(Kind::Null, ""); }  // JSON has none

  bool start_object(std::size_t) override { return open(Kind::Object); }
  bool end_object() override { return close(); }
  bool start_array(std::size_t) override { return open(Kind::List); }
  bool end_array() override { return close(); }

  bool key(std::string& name) override {
    if (open_.back()->find(name))
      report(fmt::format("the member \"{}\" stands there twice", shortened(name)));
    key_ = std::move(name);
    return true;
  }

  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception&) override {
    report(fmt::format("the line is not valid JSON (byte {})", position));
    document_ = {};
    return false;
  }

  ParsedRequest result() && {
    if (!document_.isObject()) {
      report("a request is a JSON object");
      document_ = {};
    }
    return {std::move(document_), std::move(problem_)};
  }

 private:
  /// Only the first problem counts.
  void report(const std::string& problem) {
    if (problem_.empty()) problem_ = problem;
  }

  JsonValue& place() {
    if (open_.empty()) return document_;
    JsonValue& container = *open_.back();
    return container.isObject() ? container.members[key_] : container.elements.emplace_back();
  }

  /// The place where the next value stands, empty also where it stands twice.
  JsonValue& emptyPlace(Kind kind) {
    JsonValue& value = place();
    if (value.kind != Kind::Null) value = {};
    value.kind = kind;
    return value;
  }

  bool add(Kind kind, std::string text) {
    if (tooDeep_ == 0) emptyPlace(kind).text = std::move(text);
    return true;
  }

  bool open(Kind kind) {
    if (tooDeep_ != 0 || open_.size() == kMaxJsonDepth) {
      ++tooDeep_;
      report(fmt::format("JSON nested more than {} deep", kMaxJsonDepth));
      return true;
    }
    open_.push_back(&emptyPlace(kind));
    return true;
  }

  bool close() {
    if (tooDeep_ != 0)
      --tooDeep_;
    else
      open_.pop_back();
    return true;
  }

  JsonValue document_;
  std::vector<JsonValue*> open_;
  std::string key_;
  std::size_t tooDeep_ = 0;  // containers that are open and left out
  std::string problem_;
};

}  // namespace

ParsedRequest parseRequest(std::string_view line) {
  // The parser takes a NUL as the end of its input.
  if (const std::size_t nul = line.find('\0'); nul != line.npos)
    return {{}, fmt::format("the line is not valid JSON (byte {})", nul + 1)};
  DocumentBuilder builder;
  json::sax_parse(line.begin(), line.end(), &builder);
  return std::move(builder).result();
}

}  // namespace vgdt
