#include <gui_objects/InitializationCallbackRegistrar.h>
#include <gui_objects/convert_from_string_utils.h>
#include <gui_objects/exceptions.h>

namespace gui_objects {

ArrayException::~ArrayException() = default;

const char* InvalidArrayClassException::what() const noexcept {
  return "wrong array class";
}
const char* InvalidArrayShapeException::what() const noexcept {
  return "wrong array shape";
}
const char* InvalidArrayDataException::what() const noexcept {
  return "wrong array data";
}
const char* NullArrayException::what() const noexcept {
  return "no array";
}

GeometryException::~GeometryException() = default;

const char* RectangleCrossedPointsException::what() const noexcept {
  return "negative width or height of a rectangle";
}
const char* InvalidInsetException::what() const noexcept {
  return "negative margin";
}
const char* InvalidWidthException::what() const noexcept {
  return "maximum of a box below its minimum";
}

convert_from_string_utils::ParseException::~ParseException() = default;

void InitializationCallbackRegistrar::addCallback(void (*callback)()) {
  callbacks_.push_back(callback);
}

void InitializationCallbackRegistrar::initialize() {
  while (!callbacks_.empty()) {
    void (*callback)() = callbacks_.front();
    callbacks_.erase(callbacks_.begin());
    callback();
  }
}

}  // namespace gui_objects
