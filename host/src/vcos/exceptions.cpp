#include <vcos/exceptions.h>

namespace vcos {

COSException::~COSException() = default;
const char* COSException::what() const noexcept {
  return "class system exception";
}

COSMsgException::COSMsgException(const std::string& message)
    : message_(std::make_shared<const std::string>(message)) {}
COSMsgException::COSMsgException() noexcept = default;
COSMsgException::~COSMsgException() = default;
const char* COSMsgException::what() const noexcept {
  return message_ ? message_->c_str() : COSException::what();
}

COSOutOfMemoryException::COSOutOfMemoryException() noexcept = default;
COSOutOfMemoryException::~COSOutOfMemoryException() = default;
const char* COSOutOfMemoryException::what() const noexcept {
  return "out of memory";
}

}  // namespace vcos
