#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace vgdt {

/// The request itself is wrong, whatever a type would say of the value.
class RequestError : public std::runtime_error {
 public:
  explicit RequestError(const std::string& problem)
      : runtime_error(problem),
        text_(std::make_shared<const std::string>(problem)) {}

  /// The whole text, where what() ends at a NUL.
  const std::string& text() const noexcept { return *text_; }

 private:
  std::shared_ptr<const std::string> text_;  // an exception must copy without fail
};

/// Where a failure came from. The names are those of `error.kind` in a reply.
enum class FailureKind { Host, Parse, InvalidValue, Memory, Request, Other };

struct Failure {
  FailureKind kind = FailureKind::Other;
  std::string identifier;  ///< empty where there is none
  std::string message;     ///< empty where there is none
};

/// "host", "parse", "invalid-value", ...
const char* nameOf(FailureKind kind);

/// Describes the exception that is being handled; only to be called inside a catch block. If the
/// description itself finds no memory, it tells of failed memory instead.
Failure currentFailure();

/// Runs `work` and says how it failed; none if it did not.
template <class Work>
std::optional<Failure> failureOf(Work&& work) {
  try {
    work();
    return std::nullopt;
  } catch (...) {
    return currentFailure();
  }
}

}  // namespace vgdt
