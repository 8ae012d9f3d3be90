#pragma once

#include "ExitStatus.h"
#include "Types.h"
#include "Values.h"
#include "requests/JsonWriter.h"
#include "requests/Reply.h"

#include <vx/errors.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vgdt {

/// No object.
struct NoObject {};

/// What a property holds.
struct PropertyValue {
  std::string type;
  ValueForm value;
};
using PropertyValues = std::vector<std::pair<std::string, PropertyValue>>;

/// What the host and the library are about.
struct SessionState {
  bool isInCallback;
  int vgStatus;
  int errorMode;
  bool isInterruptPending;
  bool wasInterruptHandled;
};

using NameList = std::vector<std::string>;

/// What a command gives; std::monostate if nothing.
using SessionResult = std::variant<std::monostate, NoObject, std::string, double, NameList,
                                   PropertyValue, PropertyValues, SessionState>;

/// What was reported to the host, and why, which is for people and may be empty.
struct LoggedReport {
  vghost::ErrorReport report;
  std::string reason;
};
/// What a command of a callback gives, as it is shown. Later in the line its objects may have lost
/// their names.
struct LoggedResult {
  std::string json;
  std::string text;  ///< lines
};

/// What happened while a line ran; a text is a line on the host's console.
using LogEntry = std::variant<std::string, vghost::Warning, LoggedReport, LoggedResult>;

/// What a person is told of an error besides its text.
struct ErrorDetails {
  struct RefusedValue {
    std::string property;  ///< with its object
    Type type;
    std::string given;
    vcos::ArrayOwner array;
  };
  std::optional<std::size_t> place;  ///< of what could not be read, in bytes of the line
  std::optional<RefusedValue> refused;
};

/// What a line of a session comes to. As with the replies to requests, everything that can fail has
/// been done.
struct SessionReply {
  SessionResult result = {};
  std::optional<Failure> failure = {};
  std::vector<LogEntry> log = {};
  ErrorDetails details = {};

  ExitStatus status() const { return failure ? statusOf(*failure) : kDone; }
};

std::string jsonOf(const SessionResult& result);

/// One line of JSON, flushed. `line` is the number of the line in the session.
void writeSessionReply(JsonWriter& writer, std::size_t line, const SessionReply& reply);

}  // namespace vgdt
