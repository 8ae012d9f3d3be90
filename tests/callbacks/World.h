#pragma once

#include <callback/VCallback.h>
#include <messages/exceptions.h>

#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace test {

struct Thrown : std::exception {
  const char* what() const noexcept override { return "Thrown"; }
};

/// The class of each object; the last one has neither "Interruptible" nor "BusyAction".
inline constexpr std::array kClasses = {"vortil.graphics.Line", "vortil.ui.Figure",
                                        "vortil.graphics.Text", "vortil.graphics.Light"};

/// Four objects with callbacks, whose code is a list of acts: a letter, the number of an object,
/// and what belongs to it.
///   p0 n0 u0  fires Press, Notify or Urgent; "?" behind it catches what is thrown
///   c0a c0-   sets the callbacks of the object: the code a, b, ..., or null
///   i0 I0     Interruptible off, on          b0 B0  BusyAction "cancel", "queue"
///   x0 r0     destroys it, puts a new one in its place
///   e s f     fails: unsaved, saved, unsaved with an identifier         t  throws
///   w W       begins and ends a wait         ^ !  requests and takes an interrupt
///   q Q       begins and ends a quit         o    forgets an interrupt
/// What happens is told in a line: "0d[" object 0 runs, with data (z: 0 by 0, n: none), until "]";
/// "<id text>" is a report, ";2" the end of a firing by its status, and "!name" an exception.
class World {
 public:
  explicit World(std::vector<std::string> codes) : codes_(std::move(codes)) {
    codes_.resize(std::max(codes_.size(), kClasses.size()));
  }
  virtual ~World() = default;

  /// Performs acts at the outermost level, and tells what happens and what is left.
  std::string step(std::string_view acts) {
    constexpr int kRuns = 24;
    trace_.clear();
    fuel_ = kRuns;
    try {
      perform(acts);
    } catch (const std::exception&) {
    }
    tellRest();
    return trace_;
  }
  std::size_t firings() const { return firings_; }

 protected:
  virtual void fire(char event, std::size_t object) = 0;
  virtual void change(char act, std::size_t object, const std::string* code) = 0;
  virtual void tellRest() = 0;

  template <class... Words>
  void tell(const Words&... words) {
    ((trace_ += words), ...);
  }
  /// What is left other than at first, and behind it the queue.
  void tellRest(bool isRunning, bool bit, bool mode, std::size_t references, bool mark) {
    if (isRunning) tell(" running");
    if (bit) tell(" bit");
    if (mode) tell(" mode");
    if (references > 0) tell(" references", std::to_string(references));
    if (mark) tell(" mark");
  }
  void makeObjects() {
    for (std::size_t i = 0; i < kClasses.size(); ++i) {
      change('r', i, nullptr);
      change('c', i, &codes_[i]);
    }
  }

  /// Runs a callback of the object that was made as the `number`th.
  vghost::CallbackOutcome run(std::size_t number, std::string_view code, char data) {
    tell(std::to_string(number), data, '[');
    const auto outcome = fuel_-- > 0 ? perform(code) : vghost::CallbackOutcome();
    tell(']');
    return outcome;
  }

 private:
  vghost::CallbackOutcome perform(std::string_view acts) {
    vghost::CallbackOutcome outcome;
    while (!acts.empty()) {
      const std::string_view word = acts.substr(0, acts.find(' '));
      acts.remove_prefix(std::min(acts.size(), word.size() + 1));
      const char act = word[0];
      const std::size_t object = word.size() > 1 ? std::size_t(word[1] - '0') : 0;
      const char more = word.size() > 2 ? word[2] : '-';
      if (act == 't') throw Thrown();
      if (act == 'e' || act == 's' || act == 'f') outcome = {true, act == 's'};
      try {
        if (act != 'p' && act != 'n' && act != 'u')
          change(act, object, more == '-' ? nullptr : &codes_.at(std::size_t(more - 'a')));
        else
          ++firings_, fire(act, object);
      } catch (const std::exception& error) {
        tell("!", error.what());
        if (more != '?') throw;
      }
    }
    return outcome;
  }

  std::vector<std::string> codes_;
  std::string trace_;
  int fuel_ = 0;
  std::size_t firings_ = 0;
};

}  // namespace test
