#include "requests/Requests.h"

#include "Values.h"
#include "requests/RequestParser.h"
#include "requests/TypeForm.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <ut/console.h>
#include <vx/errors.h>

#include <algorithm>
#include <vector>

namespace vgdt {
namespace {

using nlohmann::json;

constexpr const char* kMembers[] = {"id", "op", "type", "text", "array", "word", "equals", "java"};

struct RouteRow {
  const char* member;
  GivenValue::Route route;
};
constexpr RouteRow kRoutes[] = {
    {"text", GivenValue::Route::Text},
    {"array", GivenValue::Route::Array},
    {"word", GivenValue::Route::Word},
};

std::string stringMember(const json& request, const char* name) {
  const auto member = request.find(name);
  if (member == request.end()) throw RequestError(fmt::format("\"{}\" is missing", name));
  if (!member->is_string()) throw RequestError(fmt::format("\"{}\" has to be a string", name));
  return *member;
}

void requireKnownMembers(const json& request) {
  for (const auto& [name, member] : request.items())
    if (std::ranges::find(kMembers, name) == std::end(kMembers))
      throw RequestError(fmt::format("a request has no member \"{}\"; its members are {}",
                                     onOneLine(name, kMaxQuoted), fmt::join(kMembers, ", ")));
}

void refuseJava(const json& request) {
  const auto java = request.find("java");
  if (java == request.end()) return;
  if (!java->is_boolean()) throw RequestError("\"java\" has to be true or false");
  if (*java) throw RequestError("Java values are not available");
}

GivenValue givenValue(const json& object) {
  const RouteRow* chosen = nullptr;
  int count = 0;
  for (const RouteRow& row : kRoutes)
    if (object.contains(row.member)) {
      chosen = &row;
      ++count;
    }
  if (count != 1) throw RequestError("exactly one of \"text\", \"array\" and \"word\" is needed");
  return {chosen->route, stringMember(object, chosen->member)};
}

GivenValue valueToCompare(const json& equals) {
  if (!equals.is_object() || equals.size() != 1)
    throw RequestError(
        "\"equals\" has to be an object with one of \"text\", \"array\" and \"word\"");
  return givenValue(equals);
}

Json answerComparison(const Type& type, const json& request) {
  if (type.isScalar)
    throw RequestError(fmt::format("\"{}\" is a scalar: it takes no \"equals\"", type.name));
  const GivenValue given = givenValue(request);
  const GivenValue other = valueToCompare(request["equals"]);
  const Value value(type, given);
  const Value second(type, other);
  const vcos::COSDataType& dataType = type.access.dataType();
  Json answer;
  answer["value"] = valueForm(type, value.word());
  answer["equal"] = dataType.isEqual(value.word(), second.word());
  answer["compare"] = dataType.compare(value.word(), second.word());
  return answer;
}

Json answerValue(const json& request) {
  refuseJava(request);
  const Type type = requireType(stringMember(request, "type"));
  if (request.contains("equals")) return answerComparison(type, request);
  const Value value(type, givenValue(request));
  return {{"value", valueForm(type, value.word())}};
}

Json answerDescribe(const json& request) {
  return {{"type", typeForm(requireType(stringMember(request, "type")))}};
}

Json answerTypes(const json&) {
  return {{"types", libraryTypeNames()}};
}

struct Operation {
  const char* name;
  Json (*answer)(const json& request);
};
constexpr Operation kOperations[] = {
    {"value", answerValue},
    {"describe", answerDescribe},
    {"types", answerTypes},
};

template <class Rows>
std::string namesOf(const Rows& rows) {
  std::vector<const char*> names;
  for (const auto& row : rows)
    names.push_back(row.name);
  return fmt::format("{}", fmt::join(names, ", "));
}

Json answer(const json& request) {
  const std::string name = request.contains("op") ? stringMember(request, "op") : "value";
  const auto* operation =
      std::ranges::find(kOperations, name, [](const Operation& row) { return row.name; });
  if (operation == std::end(kOperations))
    throw RequestError(fmt::format("there is no op \"{}\"; the ops are {}",
                                   onOneLine(name, kMaxQuoted), namesOf(kOperations)));
  requireKnownMembers(request);
  return operation->answer(request);
}

Json replyTo(const json& request) {
  Json reply = Json::object();
  if (request.is_object() && request.contains("id")) reply["id"] = request["id"];
  return reply;
}

ExitStatus addFailure(const Failure& failure, Json& reply) {
  reply["ok"] = false;
  reply["error"] = jsonOf(failure);
  return failure.kind == FailureKind::Request ? kNotUnderstood : kRefused;
}

void addOutput(const vghost::ConsoleCapture& console, const vghost::WarningCapture& warnings,
               Json& reply) {
  if (const auto lines = console.lines(); !lines.empty()) reply["console"] = lines;
  for (const vghost::Warning& warning : warnings.warnings())
    reply["warnings"].push_back({{"id", warning.identifier}, {"message", warning.message}});
}

}  // namespace

Served serveRequest(json request) {
  const vghost::ConsoleCapture console;
  const vghost::WarningCapture warnings;
  Json answered;
  const auto failure = failureOf([&] {
    const ArrayScope scope;
    answered = answer(request);
  });
  Json reply = replyTo(request);
  ExitStatus status = kDone;
  if (failure) {
    status = addFailure(*failure, reply);
  } else {
    reply["ok"] = true;
    for (auto& [name, member] : answered.items())
      reply[name] = std::move(member);
  }
  addOutput(console, warnings, reply);
  return {std::move(request), std::move(reply), status};
}

Served serveLine(std::string_view line) {
  ParsedRequest parsed = parseRequest(line);
  if (parsed.problem.empty()) return serveRequest(std::move(parsed.request));
  return badRequest(std::move(parsed.request), parsed.problem);
}

Served badRequest(json request, const std::string& problem) {
  Json reply = replyTo(request);
  const ExitStatus status = addFailure({FailureKind::Request, "", problem}, reply);
  return {std::move(request), std::move(reply), status};
}

std::string givenText(const json& request) {
  for (const RouteRow& row : kRoutes) {
    const auto member = request.find(row.member);
    if (member == request.end()) continue;
    const bool isLiteral = row.route == GivenValue::Route::Array && member->is_string();
    return fmt::format("{} {}", row.member,
                       isLiteral ? member->get<std::string>() : dump(Json(*member)));
  }
  return {};
}

}  // namespace vgdt
