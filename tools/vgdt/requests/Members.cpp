#include "requests/Members.h"

#include "Errors.h"
#include "text/NumberText.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <span>

namespace vgdt {
namespace {

constexpr const char* kWords = "a number, or \"NaN\", \"Inf\" or \"-Inf\"";

std::optional<double> asNumber(const JsonValue& value) {
  using Limits = std::numeric_limits<double>;
  if (value.kind == JsonValue::Kind::Number) {
    double number = 0;
    std::from_chars(value.text.data(), value.text.data() + value.text.size(), number);
    return number;
  }
  if (!value.isString()) return std::nullopt;
  if (value.text == "NaN") return Limits::quiet_NaN();
  if (value.text == "Inf") return Limits::infinity();
  if (value.text == "-Inf") return -Limits::infinity();
  return std::nullopt;
}

}  // namespace

const std::string& stringMember(const JsonValue& request, const char* name) {
  const JsonValue* member = request.find(name);
  if (!member) throw RequestError(fmt::format("\"{}\" is missing", name));
  if (!member->isString()) throw RequestError(fmt::format("\"{}\" has to be a string", name));
  return member->text;
}

std::optional<double> numberMember(const JsonValue& request, const char* name) {
  const JsonValue* member = request.find(name);
  if (!member) return std::nullopt;
  const auto number = asNumber(*member);
  if (!number) throw RequestError(fmt::format("\"{}\" has to be {}", name, kWords));
  return number;
}

std::optional<std::vector<double>> numbersMember(const JsonValue& request, const char* name,
                                                 std::size_t count, const char* words) {
  const JsonValue* member = request.find(name);
  if (!member) return std::nullopt;
  std::span<const JsonValue> elements = member->elements;
  if (count == 1 && member->kind != JsonValue::Kind::List) elements = {member, 1};
  if (elements.size() != count)
    throw RequestError(
        count == 1 ? fmt::format("\"{}\" has to be one number: {}", name, words)
                   : fmt::format("\"{}\" has to be a list of {} numbers: {}", name, count, words));
  std::vector<double> numbers;
  for (const JsonValue& element : elements) {
    const auto number = asNumber(element);
    if (!number)
      throw RequestError(
          fmt::format("element {} of \"{}\" has to be {}", numbers.size() + 1, name, kWords));
    numbers.push_back(*number);
  }
  return numbers;
}

JsonValue jsonNumber(double number) {
  using Kind = JsonValue::Kind;
  return {.kind = std::isfinite(number) ? Kind::Number : Kind::String, .text = numberText(number)};
}

}  // namespace vgdt
