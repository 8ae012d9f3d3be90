#pragma once

#include <ut/export.h>

#include <exception>
#include <memory>
#include <string>

namespace vcos {

/// Base of the class system's exceptions.
class VGHOST_API COSException : public std::exception {
 public:
  ~COSException() override;
  const char* what() const noexcept override;
};

/// One with a text of its own.
class VGHOST_API COSMsgException : public COSException {
 public:
  explicit COSMsgException(const std::string& message);
  ~COSMsgException() override;
  const char* what() const noexcept override;

 protected:
  /// For a class that has a constant text and must not allocate.
  COSMsgException() noexcept;

 private:
  std::shared_ptr<const std::string> message_;
};

/// Memory for a value has failed. Thrown by value.
class VGHOST_API COSOutOfMemoryException : public COSMsgException {
 public:
  COSOutOfMemoryException() noexcept;
  ~COSOutOfMemoryException() override;
  const char* what() const noexcept override;
};

}  // namespace vcos
