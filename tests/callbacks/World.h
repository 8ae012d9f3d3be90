#pragma once

#include <callback/VCallback.h>
#include <callback/WaitForObserver.h>
#include <messages/exceptions.h>
#include <sv/features.h>
#include <ut/interrupts.h>
#include <vx/errors.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace test {

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
/// Behind it stands what the host is left with, how many references to callbacks, and what waits in
/// the queue. One world at a time lives.
class World {
 public:
  explicit World(std::vector<std::string> codes) : codes_(std::move(codes)) {
    codes_.resize(std::max(codes_.size(), kClasses.size()));
  }
  virtual ~World() {
    while (vghost::finishWait()) {
    }
    vghost::dropInterrupt();
    utSetInterruptHandled(0);
    vghost::setDbquit(false);
    svClearVGStatus(4);
    vxSetErrorMode(vxERROR_MODE_RAISE);
  }

  /// Performs the acts of each step at the outermost level, and tells what happens.
  std::vector<std::string> play(const std::vector<std::string>& steps) {
    std::vector<std::string> told;
    for (const std::string& acts : steps) {
      trace_.clear();
      fuel_ = 24;
      try {
        perform(acts);
      } catch (const std::exception&) {
      }
      const vxErrorMode mode = vxSetErrorMode(vxERROR_MODE_RAISE);
      vxSetErrorMode(mode);
      if ((svGetVGStatus() & 4) != 0) tell(" bit");
      if (mode != vxERROR_MODE_RAISE) tell(" mode");
      if (utWasInterruptHandled()) tell(" mark");
      tellRest();
      told.push_back(trace_);
    }
    return told;
  }

 protected:
  virtual void fire(char event, std::size_t object) = 0;
  virtual void change(char act, std::size_t object, const std::string* code) = 0;
  virtual void tellRest() = 0;

  template <class... Words>
  void tell(const Words&... words) {
    ((trace_ += words), ...);
  }
  void tellReferences(std::size_t count) {
    if (count > 0) tell(" references", std::to_string(count));
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
  static void control(char act) {
    if (act == 'f') vghost::setLastError("id", "");
    if (act == 'w') vghost::startWait();
    if (act == 'W') vghost::finishWait();
    if (act == '^') vghost::requestInterrupt();
    if (act == '!') vghost::takeInterrupt();
    if (act == 'o') vghost::dropInterrupt();
    if (act == 'q' || act == 'Q') vghost::setDbquit(act == 'q');
  }

  vghost::CallbackOutcome perform(std::string_view acts) {
    vghost::CallbackOutcome outcome;
    while (!acts.empty()) {
      const std::string_view word = acts.substr(0, acts.find(' '));
      acts.remove_prefix(std::min(acts.size(), word.size() + 1));
      const char act = word[0];
      const std::size_t object = word.size() > 1 ? std::size_t(word[1] - '0') : 0;
      const char more = word.size() > 2 ? word[2] : '-';
      if (act == 't') throw std::runtime_error("Thrown");
      if (act == 'e' || act == 's' || act == 'f') outcome = {true, act == 's'};
      control(act);
      try {
        if (act != 'p' && act != 'n' && act != 'u')
          change(act, object, more == '-' ? nullptr : &codes_.at(std::size_t(more - 'a')));
        else
          fire(act, object);
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
};

}  // namespace test
