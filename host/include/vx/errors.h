#pragma once

/// How an error reaches the user. The raising calls throw
/// Lindgrove::System::utErrorException_DEPRECATED and never return.

#include <messages/BaseMsgID.h>
#include <ut/export.h>

#include <string>
#include <utility>
#include <vector>

/// By a message of the catalogue.
[[noreturn]] VGHOST_API void vxErrMsgId(const resource_core::BaseMsgID& message);
/// By a literal identifier and a printf format.
[[noreturn, gnu::format(printf, 2, 3)]] VGHOST_API void vxErrMsgIdAndTxt(const char* identifier,
                                                                         const char* format, ...);
/// Numbers of messages: "VORTIL:host:NumberToText" and "VORTIL:host:TooManyFields".
inline constexpr int vxMSG_NUMBER_TO_TEXT = 17;
inline constexpr int vxMSG_TOO_MANY_FIELDS = 18;
/// By a number of the host; one that it does not know is "VORTIL:host:UnknownMessage".
[[noreturn]] VGHOST_API void vxErrMsg(int number);

/// A warning goes to the innermost vghost::WarningCapture, or to the console as one line.
VGHOST_API void vxWarningMsgId(const resource_core::BaseMsgID& message);

/// Identifier and text of the error that was raised last; null if there was none since the last
/// one was cleared. The pointers are valid until the next error.
VGHOST_API void vxGetLastErrIdAndMsg(const char** identifier, const char** message);

/// How the host's evaluator is to treat a failure of what it runs. Raising always throws.
enum vxErrorMode : int { vxERROR_MODE_RAISE = 0, vxERROR_MODE_REPORT = 1 };

/// Sets the mode and returns the old one.
VGHOST_API vxErrorMode vxSetErrorMode(vxErrorMode mode) noexcept;

namespace vghost {

/// Forgets the error that was raised last.
VGHOST_API void clearLastError() noexcept;

struct Warning {
  std::string identifier;
  std::string message;
};

/// Keeps the warnings that are issued while it lives. Captures nest; the innermost gets them.
class VGHOST_API WarningCapture {
 public:
  WarningCapture();
  virtual ~WarningCapture();
  WarningCapture(const WarningCapture&) = delete;
  WarningCapture& operator=(const WarningCapture&) = delete;

  const std::vector<Warning>& warnings() const noexcept { return warnings_; }

 protected:
  /// Gets each warning when it is issued.
  virtual void keep(Warning warning) { warnings_.push_back(std::move(warning)); }

 private:
  friend void ::vxWarningMsgId(const resource_core::BaseMsgID& message);

  std::vector<Warning> warnings_;
  WarningCapture* outer_;
};

}  // namespace vghost
