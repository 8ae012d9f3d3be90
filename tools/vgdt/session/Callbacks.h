#pragma once

#include "literal/Literal.h"

#include <callback/VCallback.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace vgdt {

class Session;

/// A callback that is running.
struct RunningCallback {
  WordResolver words;  ///< what source, event, arg1, ... stand for
  vghost::CallbackOutcome outcome = {};
  bool hasEnded = false;    ///< no further command of it runs
  std::string reason = {};  ///< why it has failed, for people

  void fail(std::string why);
};

/// Runs the callbacks of a session, whose code is commands of the session, while it lives.
class Callbacks final : public vghost::CallbackEvaluator {
 public:
  explicit Callbacks(Session& session);
  ~Callbacks() override;
  Callbacks(const Callbacks&) = delete;
  Callbacks& operator=(const Callbacks&) = delete;

  /// What the function handle of that name runs. RequestError if no function can have the name.
  void define(std::string_view name, std::string code);

 private:
  vghost::CallbackOutcome run(const vxArray* callback, const vxArray* source,
                              const vxArray* eventData) override;
  std::string codeOf(const vxArray* callback) const;
  void runCommands(std::string_view code, RunningCallback& callback);

  Session& session_;
  vghost::CallbackEvaluator* before_;
  std::map<std::string, std::string, std::less<>> functions_;
  std::size_t depth_ = 0;
};

}  // namespace vgdt
