#pragma once

#include <messages/ustring.h>
#include <ut/export.h>

#include <exception>
#include <memory>
#include <string>

namespace fl::except {

/// An error that a user is meant to read.
class VGHOST_API IUserException {
 public:
  virtual ~IUserException();

  /// The message identifier, such as "VORTIL:datatypes:InvalidValue"; empty if there is none.
  virtual const char* GetID() const = 0;
  virtual ustring GetUnicodeMessageTxt() const = 0;
  /// The text in UTF-8.
  virtual std::string GetMessageTxt() const;

  virtual IUserException* clone() const = 0;
  [[noreturn]] virtual void rethrow() const = 0;
};

/// An exception of the host's own machinery, never shown as an error of the user's.
class VGHOST_API IInternalException {
 public:
  virtual ~IInternalException();

  virtual ustring ToUstringImpl() const = 0;

  virtual IInternalException* clone() const = 0;
  [[noreturn]] virtual void rethrow() const = 0;
};

/// Joins one of the interfaces with a standard exception. The third parameter is reserved.
template <class Interface, class Base, class Reserved>
class Exception : public Interface, public Base {};

template <class Base, class Reserved>
class Exception<IInternalException, Base, Reserved> : public IInternalException, public Base {
 public:
  ustring ToUstringImpl() const override { return i18n::to_ustring(this->what()); }
};

}  // namespace fl::except

namespace Lindgrove::System {

/// Base of the internal exceptions that a library of the host may define for itself.
class VGHOST_API InternalException_DEPRECATED : public std::exception {
 public:
  ~InternalException_DEPRECATED() override;
  const char* what() const noexcept override;
};

/// Host memory for an array has failed.
class VGHOST_API OutOfMemoryException_DEPRECATED : public InternalException_DEPRECATED {
 public:
  ~OutOfMemoryException_DEPRECATED() override;
  const char* what() const noexcept override;
};

/// Leaves nested callbacks after an interrupt.
class VGHOST_API InterruptException final
    : public fl::except::Exception<fl::except::IInternalException, std::exception, void> {
 public:
  explicit InterruptException(bool isCtrlC) noexcept : isCtrlC_(isCtrlC) {}
  ~InterruptException() override;

  InterruptException* clone() const override { return new InterruptException(*this); }
  [[noreturn]] void rethrow() const override { throw *this; }
  /// "InterruptException(ctrl-c)" or "InterruptException", as ToUstringImpl().
  const char* what() const noexcept override;

 private:
  bool isCtrlC_;
};

/// Leaves nested callbacks when the debugger's quit is in progress.
class VGHOST_API DebugQuitException final
    : public fl::except::Exception<fl::except::IInternalException, std::exception, void> {
 public:
  ~DebugQuitException() override;

  DebugQuitException* clone() const override { return new DebugQuitException(*this); }
  [[noreturn]] void rethrow() const override { throw *this; }
  const char* what() const noexcept override;
};

/// The form in which a host error travels. Whoever needs the error itself calls rethrow() and
/// catches an fl::except::IUserException.
class VGHOST_API utErrorException_DEPRECATED : public std::exception {
 public:
  explicit utErrorException_DEPRECATED(std::shared_ptr<const fl::except::IUserException> error);
  ~utErrorException_DEPRECATED() override;

  /// Throws the error in its real type.
  [[noreturn]] virtual void rethrow() const;

  /// The text of the error in UTF-8.
  const char* what() const noexcept override;

 private:
  std::shared_ptr<const fl::except::IUserException> error_;
  std::shared_ptr<const std::string> text_;
};

}  // namespace Lindgrove::System
