#include "session/Callbacks.h"

#include "session/CommandWords.h"
#include "session/Session.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <messages/exceptions.h>
#include <ut/interrupts.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <utility>

namespace vgdt {
namespace {

constexpr std::size_t kMaxDepth = 256;
constexpr const char* kUndefinedFunction = "VORTIL:UndefinedFunction";

/// Counts how deeply callbacks are nested.
class Level {
 public:
  explicit Level(std::size_t& depth) : depth_(depth) { ++depth_; }
  ~Level() { --depth_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

 private:
  std::size_t& depth_;
};

vcos::ArrayOwner copyOf(const vxArray* array) {
  return vcos::ArrayOwner(array ? vxCreateSharedDataCopy(array)
                                : vxCreateDoubleMatrix(0, 0, vxREAL));
}

/// The first element, or the callback itself if that is no cell array.
const vxArray* codeArray(const vxArray* callback) {
  return vxGetClassID(callback) == vxCELL_CLASS ? vxGetCell(callback, 0) : callback;
}

WordResolver wordsOf(const vxArray* callback, const vxArray* source, const vxArray* eventData) {
  return [=](std::string_view word) -> vcos::ArrayOwner {
    if (word == "source") return copyOf(source);
    if (word == "event") return copyOf(eventData);
    const std::size_t number = argumentNumber(word);
    const bool isArgument = number > 0 && vxGetClassID(callback) == vxCELL_CLASS &&
                            number < vxGetNumberOfElements(callback);
    return isArgument ? copyOf(vxGetCell(callback, number)) : nullptr;
  };
}

void setLastError(const Failure& failure) {
  if (failure.kind == FailureKind::Request)
    vghost::clearLastError();
  else
    vghost::setLastError(failure.identifier, failure.message);
}

/// Whether @ and this name are a function handle.
bool isFunctionName(std::string_view name) {
  try {
    const vcos::ArrayOwner handle = parseLiteral(fmt::format("@{}", name));
    return name == vxGetFunctionName(handle.get());
  } catch (const LiteralError&) {
    return false;
  }
}

/// How `work` failed; the exceptions by which the library leaves nested callbacks pass through.
template <class Work>
std::optional<Failure> failureInCallback(Work&& work) {
  try {
    work();
    return std::nullopt;
  } catch (const fl::except::IInternalException&) {
    throw;
  } catch (...) {
    return currentFailure();
  }
}

}  // namespace

void RunningCallback::fail(std::string why) {
  hasEnded = true;
  outcome.hasFailed = true;
  reason = std::move(why);
}

Callbacks::Callbacks(Session& session)
    : session_(session),
      before_(vghost::installCallbackEvaluator(this)) {}

Callbacks::~Callbacks() {
  vghost::installCallbackEvaluator(before_);
}

void Callbacks::define(std::string_view name, std::string code) {
  if (!isFunctionName(name))
    throw RequestError(
        fmt::format("\"{}\" cannot be the name of a function: give letters, digits, _ and dots, no "
                    "digit or dot first",
                    shortened(name)));
  functions_.insert_or_assign(std::string(name), std::move(code));
}

/// A copy, since the callback may define its own function anew.
std::string Callbacks::codeOf(const vxArray* callback) const {
  const vxArray* const code = codeArray(callback);
  if (vxGetClassID(code) == vxCHAR_CLASS) return vxArrayToStdString(code);
  const char* const name = vxGetFunctionName(code);
  const auto found = functions_.find(name);
  if (found == functions_.end())
    vxErrMsgIdAndTxt(kUndefinedFunction,
                     "There is no function \"%s\"; \"define %s CODE\" makes one.", name, name);
  return found->second;
}

vghost::CallbackOutcome Callbacks::run(const vxArray* callback, const vxArray* source,
                                       const vxArray* eventData) {
  const Level level(depth_);
  RunningCallback running{wordsOf(callback, source, eventData)};
  auto failure = failureInCallback([&] {
    if (depth_ > kMaxDepth)
      throw RequestError(fmt::format("callbacks are nested deeper than {}", kMaxDepth));
    runCommands(codeOf(callback), running);
  });
  if (failure) {
    setLastError(*failure);
    running.fail(std::move(failure->message));
  }
  if (running.outcome.hasFailed) session_.log().noteReason(std::move(running.reason));
  return running.outcome;
}

void Callbacks::runCommands(std::string_view code, RunningCallback& callback) {
  while (!code.empty() && !callback.hasEnded) {
    const std::string_view command = code.substr(0, endOfPiece(code, ",\n"));
    code.remove_prefix(std::min(command.size() + 1, code.size()));
    if (withoutBlanks(withoutComment(command)).empty()) continue;
    if (vghost::takeInterrupt()) return callback.fail("");
    ErrorDetails details;
    const ArrayScope scope;
    session_.run(command, &callback, details);
  }
}

}  // namespace vgdt
