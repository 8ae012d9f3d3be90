#include "requests/Requests.h"

#include "JavaValues.h"
#include "Values.h"
#include "requests/Members.h"
#include "requests/RequestParser.h"
#include "requests/UnitConversion.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <graphics/datatype/ColorNameTable.h>
#include <graphics/datatype/exceptions.h>
#include <ut/console.h>
#include <vx/errors.h>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace vgdt {
namespace {

using graphics::datatype::ColorNameTable;

constexpr const char* kMembers[] = {"id", "op", "type", "text", "array", "word", "equals", "java"};
constexpr const char* kColorMembers[] = {"id", "op", "name"};
constexpr const char* kUnitsMembers[] = {"id",    "op",  "what",      "from", "to",
                                         "value", "ppi", "reference", "char", "origin"};

struct RouteRow {
  const char* member;
  GivenValue::Route route;
};
constexpr RouteRow kRoutes[] = {
    {"text", GivenValue::Route::Text},
    {"array", GivenValue::Route::Array},
    {"word", GivenValue::Route::Word},
};

bool asksForJava(const JsonValue& request) {
  const JsonValue* java = request.find("java");
  if (!java) return false;
  if (java->kind != JsonValue::Kind::Boolean)
    throw RequestError("\"java\" has to be true or false");
  return java->text == "true";
}

GivenValue givenValue(const JsonValue& object) {
  const RouteRow* chosen = nullptr;
  int count = 0;
  for (const RouteRow& row : kRoutes)
    if (object.find(row.member)) {
      chosen = &row;
      ++count;
    }
  if (count != 1) throw RequestError("exactly one of \"text\", \"array\" and \"word\" is needed");
  return {chosen->route, stringMember(object, chosen->member)};
}

std::optional<GivenValue> valueToCompare(const Type& type, const JsonValue& request) {
  const JsonValue* equals = request.find("equals");
  if (!equals) return std::nullopt;
  if (type.isScalar)
    throw RequestError(fmt::format("\"{}\" is a scalar: it takes no \"equals\"", type.name));
  if (!equals->isObject() || equals->members.size() != 1)
    throw RequestError(
        "\"equals\" has to be an object with one of \"text\", \"array\" and \"word\"");
  return givenValue(*equals);
}

ValueAnswer::Comparison comparisonOf(const Type& type, vcos::COSValue word,
                                     const GivenValue& other) {
  const Value second(type, other);
  const vcos::COSDataType& dataType = type.access.dataType();
  return {dataType.isEqual(word, second.word()), dataType.compare(word, second.word())};
}

using Answer = decltype(Reply::answer);

Answer answerValue(const JsonValue& request) {
  const bool goesToJava = asksForJava(request);
  const Type type = requireType(stringMember(request, "type"));
  const GivenValue given = givenValue(request);
  const std::optional<GivenValue> other = valueToCompare(type, request);
  std::optional<JavaAccess> java;
  if (goesToJava) java.emplace(type);
  const Value value(type, given);
  ValueAnswer result = {valueForm(type, value.word())};
  if (other) result.comparison = comparisonOf(type, value.word(), *other);
  if (java) result.java = java->formOf(value.word());
  return result;
}

Answer answerDescribe(const JsonValue& request) {
  return typeForm(requireType(stringMember(request, "type")));
}

Answer answerTypes(const JsonValue&) {
  return libraryTypeNames();
}

Answer answerColor(const JsonValue& request) {
  const ColorNameTable& table = *ColorNameTable::getInstance();
  if (!request.find("name")) return table.getColorMap();
  const std::string& name = stringMember(request, "name");
  if (name.find('\0') != std::string::npos) throw RequestError("\"name\" cannot hold a NUL");
  if (!table.isNameInTable(name.c_str())) return ColorAnswer{false, std::nullopt};
  try {
    return ColorAnswer{true, table.getColorValue(name.c_str())};
  } catch (const graphics::datatype::AmbiguousNameException&) {
    return ColorAnswer{true, std::nullopt};
  }
}

Answer answerUnits(const JsonValue& request) {
  return convertUnits(request);
}

struct Operation {
  const char* name;
  std::span<const char* const> members;
  Answer (*answer)(const JsonValue& request);
};
constexpr Operation kOperations[] = {
    {"value", kMembers, answerValue},      {"describe", kMembers, answerDescribe},
    {"types", kMembers, answerTypes},      {"color", kColorMembers, answerColor},
    {"units", kUnitsMembers, answerUnits},
};

void requireKnownMembers(const JsonValue& request, const Operation& operation) {
  for (const auto& [name, member] : request.members)
    if (std::ranges::find(operation.members, name) == operation.members.end())
      throw RequestError(
          fmt::format("a request of op \"{}\" has no member \"{}\"; its members are {}",
                      operation.name, shortened(name), fmt::join(operation.members, ", ")));
}

Answer answer(const JsonValue& request) {
  const std::string name = request.find("op") ? stringMember(request, "op") : "value";
  const auto* operation =
      std::ranges::find(kOperations, name, [](const Operation& row) { return row.name; });
  if (operation == std::end(kOperations))
    throw RequestError(fmt::format("there is no op \"{}\"; the ops are {}", shortened(name),
                                   namesOf(kOperations)));
  requireKnownMembers(request, *operation);
  return operation->answer(request);
}

}  // namespace

JsonValue requestOf(std::initializer_list<std::pair<const char*, std::string>> members) {
  JsonValue request{.kind = JsonValue::Kind::Object};
  for (const auto& [name, text] : members)
    request.members.emplace(name, JsonValue::string(text));
  return request;
}

Reply serveRequest(const JsonValue& request) {
  Reply reply;
  auto failure = failureOf([&] {
    const vghost::ConsoleCapture console;
    const vghost::WarningCapture warnings;
    auto refusal = failureOf([&] {
      const ArrayScope scope;
      reply.answer = answer(request);
    });
    if (refusal) reply.answer = std::move(*refusal);
    reply.console = console.lines();
    reply.warnings = warnings.messages();
  });
  if (failure) reply.answer = std::move(*failure);
  return reply;
}

Served serveLine(std::string_view line) {
  Served served;
  auto failure = failureOf([&] {
    ParsedRequest parsed = parseRequest(line);
    served.request = std::move(parsed.request);
    served.reply = parsed.problem.empty() ? serveRequest(served.request)
                                          : badRequest(std::move(parsed.problem));
  });
  if (failure) served.reply.answer = std::move(*failure);
  return served;
}

Reply badRequest(std::string problem) {
  return {.answer = Failure{FailureKind::Request, "", std::move(problem)}};
}

std::string routeAndContent(const JsonValue& request) {
  for (const RouteRow& row : kRoutes) {
    const JsonValue* member = request.find(row.member);
    if (!member) continue;
    const bool isLiteral = row.route == GivenValue::Route::Array && member->isString();
    return fmt::format("{} {}", row.member, isLiteral ? member->text : jsonText(*member));
  }
  return {};
}

}  // namespace vgdt
