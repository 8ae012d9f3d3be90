#include "ArrayElements.h"
#include "commands/Commands.h"
#include "commands/Refusals.h"
#include "requests/Members.h"
#include "requests/Requests.h"

#include <fmt/format.h>

#include <utility>

namespace vgdt {
namespace {

/// A number, or a list of those in a row.
JsonValue numbersOf(const char* member, const std::string& literal) {
  const vcos::ArrayOwner array = readLiteral(literal);
  const bool isRow = vxIsNumeric(array.get()) && !vxIsComplex(array.get()) &&
                     vxGetNumberOfDimensions(array.get()) == 2 && vxGetM(array.get()) <= 1;
  if (!isRow)
    throw RequestError(
        fmt::format("\"{}\" has to be a number or a row of numbers, such as [1 1 2 2]", member));
  JsonValue list{.kind = JsonValue::Kind::List};
  withElementType(vxGetClassID(array.get()), [&]<class T>(std::type_identity<T>) {
    for (const T element : elementsOf<T>(array.get()))
      list.elements.push_back(jsonNumber(static_cast<double>(element)));
  });
  return vxIsScalar(array.get()) ? list.elements.front() : list;
}

/// Explains the first unit that is none.
ExitStatus explainUnits(const Console& console, const UnitsArguments& arguments) {
  const Type type = requireType("Units");
  for (const std::string& name : {arguments.from, arguments.to}) {
    const GivenValue given{GivenValue::Route::Text, name};
    if (const auto failure = failureOf([&] { const Value value(type, given); })) {
      explainRefusal(console, {type, given, nullptr, *failure});
      break;
    }
  }
  return kRefused;
}

ExitStatus printForPeople(const Console& console, const UnitsArguments& arguments,
                          const Reply& reply) {
  const auto* failure = std::get_if<Failure>(&reply.answer);
  if (!failure) {
    console.output << textOf(std::get<UnitsAnswer>(reply.answer)) << '\n';
    return kDone;
  }
  if (failure->kind == FailureKind::Host) return explainUnits(console, arguments);
  reportProblem(console, failure->message);
  return reply.status();
}

}  // namespace

ExitStatus convertUnits(const Console& console, const UnitsArguments& arguments, bool asJson) {
  const ArrayScope scope;
  JsonValue request = requestOf(
      {{"op", "units"}, {"what", arguments.what}, {"from", arguments.from}, {"to", arguments.to}});
  const std::pair<const char*, const std::optional<std::string>&> literals[] = {
      {"value", arguments.value},         {"ppi", arguments.ppi},
      {"reference", arguments.reference}, {"char", arguments.character},
      {"origin", arguments.origin},
  };
  for (const auto& [member, literal] : literals) {
    if (!literal) continue;
    try {
      request.members.emplace(member, numbersOf(member, *literal));
    } catch (const RequestError& error) {
      if (asJson) return printReply(console, badRequest(error.text()));
      reportRequestError(console, *literal, error);
      return kNotUnderstood;
    }
  }
  const Reply reply = serveRequest(request);
  return asJson ? printReply(console, reply) : printForPeople(console, arguments, reply);
}

}  // namespace vgdt
