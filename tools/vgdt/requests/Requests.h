#pragma once

#include "requests/JsonValue.h"
#include "requests/Reply.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace vgdt {

/// A request and the reply to it.
struct Served {
  JsonValue request;  ///< Null where the line was no JSON object
  Reply reply;
};

/// A request with these members, all of them texts.
JsonValue requestOf(std::initializer_list<std::pair<const char*, std::string>> members);

/// Answers one request; what fails is a reply too.
Reply serveRequest(const JsonValue& request);

/// Serves one request; every line gets a reply.
Served serveLine(std::string_view line);

/// The reply to what cannot be served.
Reply badRequest(std::string problem);

/// How a request asks for its value, such as "text on"; empty if it does not.
std::string routeAndContent(const JsonValue& request);

}  // namespace vgdt
