#include <messages/exceptions.h>

#include <cstdlib>

namespace fl::except {

IUserException::~IUserException() = default;

std::string IUserException::GetMessageTxt() const {
  const ustring text = GetUnicodeMessageTxt();
  return i18n::to_utf8(text.data(), text.size());
}

IInternalException::~IInternalException() = default;

}  // namespace fl::except

namespace Lindgrove::System {

InternalException_DEPRECATED::~InternalException_DEPRECATED() = default;
const char* InternalException_DEPRECATED::what() const noexcept {
  return "internal exception";
}

OutOfMemoryException_DEPRECATED::~OutOfMemoryException_DEPRECATED() = default;
const char* OutOfMemoryException_DEPRECATED::what() const noexcept {
  return "out of memory";
}

InterruptException::~InterruptException() = default;
const char* InterruptException::what() const noexcept {
  return isCtrlC_ ? "InterruptException(ctrl-c)" : "InterruptException";
}

DebugQuitException::~DebugQuitException() = default;
const char* DebugQuitException::what() const noexcept {
  return "DebugQuitException";
}

utErrorException_DEPRECATED::utErrorException_DEPRECATED(
    std::shared_ptr<const fl::except::IUserException> error)
    : error_(std::move(error)),
      text_(std::make_shared<const std::string>(error_->GetMessageTxt())) {}

utErrorException_DEPRECATED::~utErrorException_DEPRECATED() = default;

void utErrorException_DEPRECATED::rethrow() const {
  error_->rethrow();
  std::abort();  // never reached, but compilers do not all see that
}

const char* utErrorException_DEPRECATED::what() const noexcept {
  return text_->c_str();
}

}  // namespace Lindgrove::System
