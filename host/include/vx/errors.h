#pragma once

/// How an error reaches the user. The raising calls throw
/// Lindgrove::System::utErrorException_DEPRECATED and never return.

#include <messages/BaseMsgID.h>
#include <ut/export.h>

#include <string>
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

namespace Lindgrove {

struct VGHOST_API VException {
  /// Reports an error: to the innermost vghost::ReportCapture, or to the console as one line.
  [[gnu::format(printf, 2, 3)]] static void PrintErrorMessage(const char* identifier,
                                                              const char* format, ...);
};

}  // namespace Lindgrove

/// Identifier and text of the error that was raised last; null if there was none since the last
/// one was cleared. The pointers are valid until the next error.
VGHOST_API void vxGetLastErrIdAndMsg(const char** identifier, const char** message);

/// How the host's evaluator is to treat a failure of what it runs. Raising always throws.
enum vxErrorMode : int { vxERROR_MODE_RAISE = 0, vxERROR_MODE_REPORT = 1 };

/// Sets the mode and returns the old one.
VGHOST_API vxErrorMode vxSetErrorMode(vxErrorMode mode) noexcept;

namespace vghost {

/// Makes an error the one that was raised last. An empty identifier is none.
VGHOST_API void setLastError(std::string identifier, std::string text);
/// Forgets the error that was raised last.
VGHOST_API void clearLastError() noexcept;

struct VGHOST_API Warning {
  std::string identifier;
  std::string message;
};
struct VGHOST_API ErrorReport {
  std::string identifier;  ///< empty if there is none
  std::string message;
};

/// Keeps the warnings, or the reports, that the thread issues while it lives. Captures nest; the
/// innermost gets them.
template <class Message>
class VGHOST_API MessageCapture {
 public:
  MessageCapture();
  virtual ~MessageCapture();
  MessageCapture(const MessageCapture&) = delete;
  MessageCapture& operator=(const MessageCapture&) = delete;

  const std::vector<Message>& messages() const noexcept { return messages_; }

  /// For the host itself: hands a message to the innermost capture; false if there is none.
  static bool offer(Message& message);

 protected:
  /// Gets each message when it is issued.
  virtual void keep(Message message);

 private:
  std::vector<Message> messages_;
  MessageCapture* outer_;
};

using WarningCapture = MessageCapture<Warning>;
using ReportCapture = MessageCapture<ErrorReport>;

}  // namespace vghost
