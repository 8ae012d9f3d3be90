#include "requests/RequestParser.h"

#include "text/TextDisplay.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

namespace vgdt {
namespace {

using nlohmann::json;

/// Builds the document event by event: the library's own builder keeps the last of two equal
/// members and has no limit of depth.
class DocumentBuilder final : public nlohmann::json_sax<json> {
 public:
  bool null() override { return add(nullptr); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(json::number_integer_t value) override { return add(value); }
  bool number_unsigned(json::number_unsigned_t value) override { return add(value); }
  bool number_float(json::number_float_t value, const std::string&) override { return add(value); }
  bool string(std::string& value) override { return add(std::move(value)); }
  bool binary(json::binary_t& value) override { return add(std::move(value)); }

  bool start_object(std::size_t) override { return open(json::object()); }
  bool end_object() override { return close(); }
  bool start_array(std::size_t) override { return open(json::array()); }
  bool end_array() override { return close(); }

  bool key(std::string& name) override {
    if (open_.back()->contains(name))
      report(fmt::format("the member \"{}\" stands there twice", onOneLine(name, kMaxQuoted)));
    key_ = std::move(name);
    return true;
  }

  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception&) override {
    report(fmt::format("the line is not valid JSON (byte {})", position));
    document_ = nullptr;
    return false;
  }

  ParsedRequest result() && {
    if (!document_.is_object()) report("a request is a JSON object");
    return {document_.is_object() ? std::move(document_) : nullptr, std::move(problem_)};
  }

 private:
  /// Only the first problem counts.
  void report(const std::string& problem) {
    if (problem_.empty()) problem_ = problem;
  }

  json& place() {
    if (open_.empty()) return document_;
    json& container = *open_.back();
    return container.is_array() ? container.emplace_back() : container[key_];
  }

  template <class T>
  bool add(T&& value) {
    if (tooDeep_ == 0) place() = std::forward<T>(value);
    return true;
  }

  bool open(json container) {
    if (tooDeep_ != 0 || open_.size() == kMaxJsonDepth) {
      ++tooDeep_;
      report(fmt::format("JSON nested more than {} deep", kMaxJsonDepth));
      return true;
    }
    json& element = place();
    element = std::move(container);
    open_.push_back(&element);
    return true;
  }

  bool close() {
    if (tooDeep_ != 0)
      --tooDeep_;
    else
      open_.pop_back();
    return true;
  }

  json document_;
  std::vector<json*> open_;
  std::string key_;
  std::size_t tooDeep_ = 0;  // containers that are open and left out
  std::string problem_;
};

}  // namespace

ParsedRequest parseRequest(std::string_view line) {
  // The parser takes a NUL as the end of its input.
  if (const std::size_t nul = line.find('\0'); nul != line.npos)
    return {nullptr, fmt::format("the line is not valid JSON (byte {})", nul + 1)};
  DocumentBuilder builder;
  json::sax_parse(line.begin(), line.end(), &builder);
  return std::move(builder).result();
}

}  // namespace vgdt
