#pragma once

#include "ExitStatus.h"
#include "requests/JsonForms.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace vgdt {

/// A request and the reply to it.
struct Served {
  nlohmann::json request;  ///< null where the line was no JSON object
  Json reply;
  ExitStatus status;
};

Served serveRequest(nlohmann::json request);

/// Serves one request; every line gets a reply.
Served serveLine(std::string_view line);

/// The reply to what cannot be served.
Served badRequest(nlohmann::json request, const std::string& problem);

/// How a request gives its value, such as "text on"; empty if it gives none.
std::string givenText(const nlohmann::json& request);

}  // namespace vgdt
