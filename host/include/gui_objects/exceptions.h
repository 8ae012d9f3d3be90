#pragma once

#include <ut/export.h>

#include <exception>

namespace gui_objects {

/// What the readers of host arrays throw. A conversion turns each of them into a host error.
class VGHOST_API ArrayException : public std::exception {
 public:
  ~ArrayException() override;
};

class VGHOST_API InvalidArrayClassException : public ArrayException {
 public:
  const char* what() const noexcept override;
};

class VGHOST_API InvalidArrayShapeException : public ArrayException {
 public:
  const char* what() const noexcept override;
};

class VGHOST_API InvalidArrayDataException : public ArrayException {
 public:
  const char* what() const noexcept override;
};

class VGHOST_API NullArrayException : public ArrayException {
 public:
  const char* what() const noexcept override;
};

}  // namespace gui_objects
