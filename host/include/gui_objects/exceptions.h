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

/// What the constructors of the geometric classes throw.
class VGHOST_API GeometryException : public std::exception {
 public:
  ~GeometryException() override;
};

/// A rectangle of negative width or height.
class VGHOST_API RectangleCrossedPointsException : public GeometryException {
 public:
  const char* what() const noexcept override;
};

/// A negative margin.
class VGHOST_API InvalidInsetException : public GeometryException {
 public:
  const char* what() const noexcept override;
};

/// A box whose maximum is not at or above its minimum.
class VGHOST_API InvalidWidthException : public GeometryException {
 public:
  const char* what() const noexcept override;
};

}  // namespace gui_objects
