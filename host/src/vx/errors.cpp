#include "../ut/format.h"

#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <messages/translation.h>
#include <ut/console.h>
#include <vx/errors.h>

#include <atomic>
#include <cstdarg>
#include <memory>
#include <optional>
#include <utility>

namespace {

/// A host error in its real type.
class UserError final
    : public fl::except::Exception<fl::except::IUserException, std::exception, void> {
 public:
  UserError(std::string identifier, std::string text)
      : texts_(std::make_shared<const Texts>(Texts{std::move(identifier), std::move(text)})) {}

  const char* GetID() const override { return texts_->identifier.c_str(); }
  fl::ustring GetUnicodeMessageTxt() const override { return fl::i18n::to_ustring(texts_->text); }
  std::string GetMessageTxt() const override { return texts_->text; }
  UserError* clone() const override { return new UserError(*this); }
  [[noreturn]] void rethrow() const override { throw *this; }
  const char* what() const noexcept override { return texts_->text.c_str(); }

 private:
  struct Texts {
    std::string identifier;
    std::string text;
  };
  std::shared_ptr<const Texts> texts_;  // shared, since a thrown exception must copy without fail
};

/// Each thread has a last error of its own.
std::optional<UserError>& lastError() {
  thread_local std::optional<UserError> error;
  return error;
}

void record(std::string identifier, std::string text) {
  lastError() = UserError(std::move(identifier), std::move(text));
}

/// The exception to throw for the recorded error. It is made in a function of its own, so that the
/// usual callers have no object left to destroy when they throw, which would take as long again.
Lindgrove::System::utErrorException_DEPRECATED recordedError() {
  return Lindgrove::System::utErrorException_DEPRECATED(
      std::make_shared<const UserError>(*lastError()));
}

constinit std::atomic<vxErrorMode> errorMode = vxERROR_MODE_RAISE;

template <class Message>
constinit thread_local vghost::MessageCapture<Message>* innermost = nullptr;

}  // namespace

void vxErrMsgId(const resource_core::BaseMsgID& message) {
  record(message.definition().identifier,
         vghost::messages::text(message, vghost::messages::locale()));
  throw recordedError();
}

void vxErrMsgIdAndTxt(const char* identifier, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  record(identifier, vghost::formatted(format, arguments));
  va_end(arguments);
  throw recordedError();
}

void vxErrMsg(int number) {
  if (number == vxMSG_NUMBER_TO_TEXT) vxErrMsgId(VORTIL::host::NumberToText());
  if (number == vxMSG_TOO_MANY_FIELDS) vxErrMsgId(VORTIL::host::TooManyFields());
  vxErrMsgId(VORTIL::host::UnknownMessage(std::to_string(number)));
}

void vxWarningMsgId(const resource_core::BaseMsgID& message) {
  vghost::Warning warning{message.definition().identifier,
                          vghost::messages::text(message, vghost::messages::locale())};
  if (!vghost::WarningCapture::offer(warning)) utPrintf("Warning: %s\n", warning.message.c_str());
}

void Lindgrove::VException::PrintErrorMessage(const char* identifier, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  vghost::ErrorReport report{identifier, vghost::formatted(format, arguments)};
  va_end(arguments);
  if (vghost::ReportCapture::offer(report)) return;
  const std::string& known = report.identifier;
  utPrintf("%s%s\n", report.message.c_str(), known.empty() ? "" : (" (" + known + ")").c_str());
}

void vxGetLastErrIdAndMsg(const char** identifier, const char** message) {
  const auto& error = lastError();
  *identifier = error && *error->GetID() != '\0' ? error->GetID() : nullptr;
  *message = error ? error->what() : nullptr;
}

vxErrorMode vxSetErrorMode(vxErrorMode mode) noexcept {
  return errorMode.exchange(mode);
}

namespace vghost {

void setLastError(std::string identifier, std::string text) {
  record(std::move(identifier), std::move(text));
}

void clearLastError() noexcept {
  lastError().reset();
}

template <class Message>
MessageCapture<Message>::MessageCapture() : outer_(innermost<Message>) {
  innermost<Message> = this;
}

template <class Message>
MessageCapture<Message>::~MessageCapture() {
  innermost<Message> = outer_;
}

template <class Message>
bool MessageCapture<Message>::offer(Message& message) {
  if (!innermost<Message>) return false;
  innermost<Message>->keep(std::move(message));
  return true;
}

template <class Message>
void MessageCapture<Message>::keep(Message message) {
  messages_.push_back(std::move(message));
}

template class MessageCapture<Warning>;
template class MessageCapture<ErrorReport>;

}  // namespace vghost
